// The kernels from RGB to YCbCr.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct RgbToYuvKernels {
    ModeTable bgr32ToUyvy, bgr32ToUvyy, bgr32ToSemiPlanar;
    Kernel bgr32ToYuyv;
    Kernel bgr32ToYuyvA8p, bgr32ToUyvyA8p, bgr32ToUvyyA8p, bgr32ToSemiPlanarA8p;
    Kernel bgr24ToYuyv, bgr24ToUyvy, bgr24ToUvyy, bgr24ToSemiPlanar;
};

}  // namespace orva
