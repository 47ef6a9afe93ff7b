// The instruction sets that kernels are compiled for, and the choice among their tables.
#pragma once

namespace orva {

template <class Kernels> struct TableOf {
    const char* instructionSet;
    const Kernels* kernels;
    bool (*isSupported)();  // by this processor and its system
};

// From the oldest instruction set to the newest.
inline constexpr unsigned kernelTableCount = 3;
template <class Kernels> using Tables = TableOf<Kernels>[kernelTableCount];

inline bool supportsSse2() { return true; }
inline bool supportsAvx2() { return __builtin_cpu_supports("avx2") != 0; }
inline bool supportsAvx512() {
    return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
           __builtin_cpu_supports("avx512vnni");
}

// Whether results that the processor has to compute should be written past its caches as well. On
// Intel's it saves the reading of lines that are overwritten; on AMD's it takes 8 to 50 % longer.
inline bool streamingPaysWhereComputed() { return __builtin_cpu_is("intel") != 0; }

// May be called before the C library's constructors.
template <class Kernels> const Kernels* newestSupported(const Tables<Kernels>& tables) {
    __builtin_cpu_init();
    const Kernels* newest = nullptr;
    for (const TableOf<Kernels>& table : tables)
        if (table.isSupported())
            newest = table.kernels;
    return newest;
}

}  // namespace orva
