// The instruction sets that kernels are compiled for, and the choice among their tables.
#pragma once

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>

// SET(namespace of the kernels, name, whether the processor and its system support it) for each,
// from the oldest to the newest. What the compiler may use of each is in src/CMakeLists.txt.
#define ORVA_INSTRUCTION_SETS(SET)                                                                 \
    SET(sse2, "SSE2", supportsSse2)                                                                \
    SET(sse41, "SSE4.1", supportsSse41)                                                            \
    SET(avx2, "AVX2", supportsAvx2)                                                                \
    SET(avxvnni, "AVX-VNNI", supportsAvxVnni)                                                      \
    SET(avx512, "AVX-512", supportsAvx512)

namespace orva {

inline bool supportsSse2() { return true; }
inline bool supportsSse41() { return __builtin_cpu_supports("sse4.1") != 0; }
inline bool supportsAvx2() { return __builtin_cpu_supports("avx2") != 0; }
inline bool supportsAvxVnni() {
    // Clang 14 knows no name for it.
    unsigned a, b, c, d;
    constexpr unsigned avxVnni = 1 << 4;
    return supportsAvx2() && __get_cpuid_count(7, 0, &a, &b, &c, &d) && a >= 1 &&
           __get_cpuid_count(7, 1, &a, &b, &c, &d) && (a & avxVnni);
}
// Hypervisors and hybrid processors may report one part without another.
inline bool supportsAvx512() {
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
           __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512vnni");
}

// May be needed before the C library's constructors ran.
inline void identifyProcessor() { __builtin_cpu_init(); }

// Whether results that the processor has to compute should be written past its caches as well. On
// Intel's it saves the reading of lines that are overwritten; on AMD's it takes 8 to 50 % longer.
inline bool streamingPaysWhereComputed() { return __builtin_cpu_is("intel") != 0; }

}  // namespace orva

#elif defined(__aarch64__) && !defined(__AARCH64EB__)

#define ORVA_INSTRUCTION_SETS(SET) SET(neon, "NEON", supportsNeon)

namespace orva {

inline bool supportsNeon() { return true; }
inline void identifyProcessor() {}
inline bool streamingPaysWhereComputed() { return false; }

}  // namespace orva

#else
#error "there are kernels for x86 and little-endian 64-bit ARM only"
#endif

namespace orva {

template <class Kernels> struct TableOf {
    const char* instructionSet;
    const Kernels* kernels;
    bool (*isSupported)();
};

#define ORVA_COUNT(...) +1
inline constexpr unsigned kernelTableCount = 0 ORVA_INSTRUCTION_SETS(ORVA_COUNT);
#undef ORVA_COUNT

// From the oldest instruction set to the newest.
template <class Kernels> using Tables = TableOf<Kernels>[kernelTableCount];

template <class Kernels> const Kernels* newestSupported(const Tables<Kernels>& tables) {
    identifyProcessor();
    const Kernels* newest = nullptr;
    for (const TableOf<Kernels>& table : tables)
        if (table.isSupported())
            newest = table.kernels;
    return newest;
}

}  // namespace orva
