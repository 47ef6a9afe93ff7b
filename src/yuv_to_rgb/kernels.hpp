// The kernels from YCbCr to RGB.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct YuvToRgbKernels {
    ModeTable uyvyToBgr32, semiPlanarToBgr32;
    KernelSet yuyvToBgr32;
    KernelSet uyvyA8pToBgr32, yuyvA8pToBgr32, semiPlanarA8pToBgr32;
    KernelSet uyvyToBgr24, yuyvToBgr24, uvyyToBgr24, semiPlanarToBgr24;
};

}  // namespace orva
