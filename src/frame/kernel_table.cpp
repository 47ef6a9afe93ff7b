// One instruction set's table: its families' kernels in one place.
#include "frame/active_kernels.hpp"

namespace orva::ORVA_ISA {

extern const AlphaKernels alphaKernels;
extern const YuvToRgbKernels yuvToRgbKernels;

extern const Kernels kernels;
constinit const Kernels kernels{alphaKernels, yuvToRgbKernels};

}  // namespace orva::ORVA_ISA
