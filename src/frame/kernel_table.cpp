// One instruction set's table: its families' kernels in one place.
#include "frame/active_kernels.hpp"
#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

extern const AlphaKernels alphaKernels;
extern const RgbKernels rgbKernels;
extern const RgbToYuvKernels rgbToYuvKernels;
extern const YuvToRgbKernels yuvToRgbKernels;
extern const YuvToYuvKernels yuvToYuvKernels;

extern const Kernels kernels;
constinit const Kernels kernels{alphaKernels,    rgbKernels,      rgbToYuvKernels,
                                yuvToRgbKernels, yuvToYuvKernels, Wide::lanes > 1};

}  // namespace orva::ORVA_ISA
