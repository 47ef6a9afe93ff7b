// Runs a test with every table of kernels that this machine supports, and says which it ran.
#pragma once

#include "frame/active_kernels.hpp"

#include <gtest/gtest.h>

#include <cstdio>

namespace test {

template <class Body> void withEveryTable(Body body) {
    const orva::Kernels* const chosen = orva::activeKernels;
    for (const orva::InstructionSet set : orva::instructionSets) {
        const orva::Kernels* const kernels = orva::kernelsFor(set);
        printf("[  tables  ] %s%s\n", orva::nameOf(set), kernels ? "" : ": not on this processor");
        if (!kernels)
            continue;
        SCOPED_TRACE(orva::nameOf(set));
        orva::activeKernels = kernels;
        body();
    }
    orva::activeKernels = chosen;
}

}  // namespace test
