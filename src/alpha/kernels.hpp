// The kernels of alpha planes.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct AlphaKernels {
    KernelSet copy;
    KernelSet fill;
};

}  // namespace orva
