// The kernels that copy and repack BGR.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct RgbKernels {
    KernelSet bgr32ToBgr32;
    KernelSet bgr32ToBgr24;
    KernelSet bgr24ToBgr32;
    KernelSet bgr24ToBgr24;
};

}  // namespace orva
