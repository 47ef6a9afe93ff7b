// The kernels from YCbCr to RGB.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct YuvToRgbKernels {
    ModeTable uyvyToBgr32;
    KernelSet yuyvToBgr32;
    KernelSet uyvyA8pToBgr32;
    KernelSet yuyvA8pToBgr32;
};

}  // namespace orva
