// Chooses the engine's table when the library is loaded.
#include "picture/active_kernels.hpp"

#include "picture/passes.hpp"

namespace orva {

namespace sse2 {
extern const picture::Kernels pictureKernels;
}
namespace avx2 {
extern const picture::Kernels pictureKernels;
}
namespace avx512 {
extern const picture::Kernels pictureKernels;
}

namespace picture {

constinit const Tables<Kernels> tables = {
    {"SSE2", &sse2::pictureKernels, supportsSse2},
    {"AVX2", &avx2::pictureKernels, supportsAvx2},
    {"AVX-512", &avx512::pictureKernels, supportsAvx512},
};

constinit const Kernels* activeKernels = &sse2::pictureKernels;

[[gnu::constructor]] static void chooseKernels() { activeKernels = newestSupported(tables); }

}  // namespace picture
}  // namespace orva
