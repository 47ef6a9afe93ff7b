// The kernels between YCbCr layouts.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct YuvToYuvKernels {
    // The same matrix on both sides: bytes move.
    KernelSet copy;
    KernelSet byteSwap;
    KernelSet middleSwap;
    KernelSet split;
    // From one matrix to the other.
    KernelSet uyvyMatrix;
    KernelSet yuyvMatrix;
    KernelSet uyvyToYuyvMatrix;
    KernelSet yuyvToUyvyMatrix;
};

}  // namespace orva
