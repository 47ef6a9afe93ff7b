// The kernels of alpha planes: copy and fill, and out of and into the fourth bytes of pixels.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct AlphaKernels {
    Kernel copy;
    Kernel fill;
    Kernel bgr32ToAlpha;
    Kernel bgr32ToBgr24A8p;
    Kernel bgr24A8pToBgr32;
};

}  // namespace orva
