// The exports that copy and fill alpha planes and move them out of and into the fourth bytes of
// BGR32I.
#include "alpha/kernels.hpp"
#include "frame/export.hpp"

using namespace orva;

ORVA_EX(A8P_A8P) { convert(activeKernels->alpha.copy, aligned::dst<32, 32>, d); }
ORVA_EX(A8C_A8P) { convert(activeKernels->alpha.fill, aligned::dst<32, 32>, d); }

ORVA_EX(BGR32I_A8P) { convert(activeKernels->alpha.bgr32ToAlpha, aligned::dst<16, 16>, d); }
ORVA_EX(BGR32I_BGR24IA8P) {
    convert(activeKernels->alpha.bgr32ToBgr24A8p, aligned::dst<48, 16>, d);
}
ORVA_EX(BGR24IA8P_BGR32I) {
    convert(activeKernels->alpha.bgr24A8pToBgr32, aligned::dst<16, 16>, d);
}
