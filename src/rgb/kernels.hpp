// The kernels that copy and repack BGR.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct RgbKernels {
    Kernel bgr32ToBgr32;
    Kernel bgr32ToBgr24;
    Kernel bgr24ToBgr32;
    Kernel bgr24ToBgr24;
};

}  // namespace orva
