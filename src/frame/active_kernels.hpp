// The tables of kernels, one per instruction set, and the one in use.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct AlphaKernels;
struct RgbKernels;
struct RgbToYuvKernels;
struct YuvToRgbKernels;
struct YuvToYuvKernels;

struct Kernels {
    const AlphaKernels& alpha;
    const RgbKernels& rgb;
    const RgbToYuvKernels& rgbToYuv;
    const YuvToRgbKernels& yuvToRgb;
    const YuvToYuvKernels& yuvToYuv;
};

struct KernelTable {
    const char* instructionSet;
    const Kernels* kernels;
    bool (*isSupported)();  // by this processor and its system
};

// From the oldest instruction set to the newest.
inline constexpr unsigned kernelTableCount = 3;
extern const KernelTable kernelTables[kernelTableCount];

// Those of the newest instruction set that is supported, chosen once when the library is loaded.
// Only tests and benchmarks change it.
extern const Kernels* activeKernels;

}  // namespace orva
