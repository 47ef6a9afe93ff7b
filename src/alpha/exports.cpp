// The exports that copy or fill an alpha plane.
#include "alpha/kernels.hpp"
#include "frame/export.hpp"

using namespace orva;

ORVA_EX(A8P_A8P) { convert(activeKernels->alpha.copy, aligned::alphaPlane, d); }
ORVA_EX(A8C_A8P) { convert(activeKernels->alpha.fill, aligned::alphaPlane, d); }
