// The kernels between YCbCr layouts.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct YuvToYuvKernels {
    // The same matrix on both sides: bytes move.
    Kernel copy;
    Kernel byteSwap;
    Kernel middleSwap;
    Kernel split;
    // From one matrix to the other.
    Kernel uyvyMatrix;
    Kernel yuyvMatrix;
    Kernel uyvyToYuyvMatrix;
    Kernel yuyvToUyvyMatrix;
};

}  // namespace orva
