// The exports from YCbCr to RGB.
#include "frame/export.hpp"
#include "yuv_to_rgb/kernels.hpp"

using namespace orva;

static const YuvToRgbKernels& kernels() { return activeKernels->yuvToRgb; }

ORVA_EX(UYVY16I_BGR32I) { convert(kernels().uyvyToBgr32, aligned::both<32, 16, 8>, d); }
ORVA_EX(YUYV16I_BGR32I) { convert(kernels().yuyvToBgr32, aligned::both<16, 32, 8>, d); }
ORVA_EX(Y8PUV8I_BGR32I) { convert(kernels().semiPlanarToBgr32, aligned::both<32, 16, 8>, d); }

ORVA_EX(UYVY16IA8P_BGR32I) { convert(kernels().uyvyA8pToBgr32, aligned::both<16, 32, 8>, d); }
ORVA_EX(YUYV16IA8P_BGR32I) { convert(kernels().yuyvA8pToBgr32, aligned::both<16, 32, 8>, d); }
ORVA_EX(Y8PUV8IA8P_BGR32I) { convert(kernels().semiPlanarA8pToBgr32, aligned::dst<16, 16>, d); }

ORVA_EX(UYVY16I_BGR24I) { convert(kernels().uyvyToBgr24, aligned::dst<48, 16>, d); }
ORVA_EX(YUYV16I_BGR24I) { convert(kernels().yuyvToBgr24, aligned::dst<48, 16>, d); }
ORVA_EX(UVYY16I_BGR24I) { convert(kernels().uvyyToBgr24, aligned::dst<48, 16>, d); }
ORVA_EX(Y8PUV8I_BGR24I) { convert(kernels().semiPlanarToBgr24, aligned::dst<48, 16>, d); }
