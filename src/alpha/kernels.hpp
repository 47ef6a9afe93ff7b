// The kernels of alpha planes: copy and fill, and out of and into the fourth bytes of pixels.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct AlphaKernels {
    KernelSet copy;
    KernelSet fill;
    KernelSet bgr32ToAlpha;
    KernelSet bgr32ToBgr24A8p;
    KernelSet bgr24A8pToBgr32;
};

}  // namespace orva
