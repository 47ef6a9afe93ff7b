// Chooses the engine's table when the library is loaded.
#include "picture/active_kernels.hpp"

#include "frame/processor.hpp"
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

constinit const Table tables[tableCount] = {
    {"SSE2", &sse2::pictureKernels, supportsSse2},
    {"AVX2", &avx2::pictureKernels, supportsAvx2},
    {"AVX-512", &avx512::pictureKernels, supportsAvx512},
};

constinit const Kernels* activeKernels = &sse2::pictureKernels;

[[gnu::constructor]] static void chooseKernels() {
    __builtin_cpu_init();
    for (const Table& table : tables)
        if (table.isSupported())
            activeKernels = table.kernels;
}

}  // namespace picture
}  // namespace orva
