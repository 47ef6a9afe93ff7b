// Chooses the table of kernels when the library is loaded.
#include "frame/active_kernels.hpp"

namespace orva {

namespace sse2 {
extern const Kernels kernels;
}
namespace avx2 {
extern const Kernels kernels;
}
namespace avx512 {
extern const Kernels kernels;
}

constinit const KernelTable kernelTables[kernelTableCount] = {
    {"SSE2", &sse2::kernels, [] { return true; }},
    {"AVX2", &avx2::kernels, [] { return __builtin_cpu_supports("avx2") != 0; }},
    {"AVX-512", &avx512::kernels,
     [] {
         return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
                __builtin_cpu_supports("avx512vnni");
     }},
};

constinit const Kernels* activeKernels = &sse2::kernels;

[[gnu::constructor]] static void chooseKernels() {
    __builtin_cpu_init();
    for (const KernelTable& table : kernelTables)
        if (table.isSupported())
            activeKernels = table.kernels;
}

}  // namespace orva
