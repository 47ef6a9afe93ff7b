// The tables of kernels, one per instruction set, and the one in use.
#pragma once

#include "frame/instruction_sets.hpp"
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
    bool useWideRegisters;  // more than 128 bits
};

using KernelTable = TableOf<Kernels>;
extern const Tables<Kernels> kernelTables;

// Those of the newest instruction set that is supported, chosen once when the library is loaded.
// Only tests and benchmarks change it.
extern const Kernels* activeKernels;

}  // namespace orva
