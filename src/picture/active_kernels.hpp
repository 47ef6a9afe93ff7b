// The engine's tables, one per instruction set, and the one in use.
#pragma once

namespace orva::picture {

struct Kernels;

struct Table {
    const char* instructionSet;
    const Kernels* kernels;
    bool (*isSupported)();  // by this processor and its system
};

// From the oldest instruction set to the newest.
inline constexpr unsigned tableCount = 3;
extern const Table tables[tableCount];

// That of the newest instruction set that is supported, chosen once when the library is loaded.
// Only tests and benchmarks change it.
extern const Kernels* activeKernels;

}  // namespace orva::picture
