// Runs a test with every table of kernels that this machine supports, and says which it ran.
#pragma once

#include "frame/active_kernels.hpp"
#include "picture/active_kernels.hpp"

#include <gtest/gtest.h>

#include <cstdio>

namespace test {

template <class Table, std::size_t count> void sayWhichRun(const Table (&tables)[count]) {
    static const bool said = [&] {
        for (const Table& table : tables) {
            printf("[  tables  ] %s%s\n", table.instructionSet,
                   table.isSupported() ? "" : ": not supported here");
        }
        return true;
    }();
    static_cast<void>(said);
}

template <class Table, std::size_t count, class Kernels, class Body>
void withEach(const Table (&tables)[count], const Kernels*& active, Body body) {
    sayWhichRun(tables);
    const Kernels* const chosen = active;
    for (const Table& table : tables) {
        if (table.isSupported()) {
            SCOPED_TRACE(table.instructionSet);
            active = table.kernels;
            body();
        }
    }
    active = chosen;
}

// With those of the exports.
template <class Body> void withEveryTable(Body body) {
    withEach(orva::kernelTables, orva::activeKernels, body);
}

// With those of the checked library.
template <class Body> void withEveryPictureTable(Body body) {
    withEach(orva::picture::tables, orva::picture::activeKernels, body);
}

}  // namespace test
