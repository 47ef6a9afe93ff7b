// Runs a test with every table of kernels that this machine supports, and says which it ran.
#pragma once

#include "frame/active_kernels.hpp"

#include <gtest/gtest.h>

#include <cstdio>

namespace test {

template <class Body> void withEveryTable(Body body) {
    const orva::Kernels* const chosen = orva::activeKernels;
    for (const orva::KernelTable& table : orva::kernelTables) {
        const bool supported = table.isSupported();
        printf("[  tables  ] %s%s\n", table.instructionSet,
               supported ? "" : ": not supported here");
        if (!supported)
            continue;
        SCOPED_TRACE(table.instructionSet);
        orva::activeKernels = table.kernels;
        body();
    }
    orva::activeKernels = chosen;
}

}  // namespace test
