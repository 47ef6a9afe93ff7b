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

constinit const Tables<Kernels> kernelTables = {
    {"SSE2", &sse2::kernels, supportsSse2},
    {"AVX2", &avx2::kernels, supportsAvx2},
    {"AVX-512", &avx512::kernels, supportsAvx512},
};

constinit const Kernels* activeKernels = &sse2::kernels;

[[gnu::constructor]] static void chooseKernels() { activeKernels = newestSupported(kernelTables); }

}  // namespace orva
