// The kernels from YCbCr to RGB.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct YuvToRgbKernels {
    ModeTable uyvyToBgr32, semiPlanarToBgr32;
    Kernel yuyvToBgr32;
    Kernel uyvyA8pToBgr32, yuyvA8pToBgr32, semiPlanarA8pToBgr32;
    Kernel uyvyToBgr24, yuyvToBgr24, uvyyToBgr24, semiPlanarToBgr24;
};

}  // namespace orva
