// The exports from RGB to YCbCr.
#include "frame/export.hpp"
#include "rgb_to_yuv/kernels.hpp"

using namespace orva;

static const RgbToYuvKernels& kernels() { return activeKernels->rgbToYuv; }

ORVA_EX(BGR32I_YUYV16I) { convert(kernels().bgr32ToYuyv, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_UYVY16I) { convert(kernels().bgr32ToUyvy, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_UVYY16I) { convert(kernels().bgr32ToUvyy, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_Y8PUV8I) { convert(kernels().bgr32ToSemiPlanar, aligned::both<32, 16, 8>, d); }

ORVA_EX(BGR32I_YUYV16IA8P) { convert(kernels().bgr32ToYuyvA8p, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_UYVY16IA8P) { convert(kernels().bgr32ToUyvyA8p, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_UVYY16IA8P) { convert(kernels().bgr32ToUvyyA8p, aligned::both<32, 16, 8>, d); }
ORVA_EX(BGR32I_Y8PUV8IA8P) { convert(kernels().bgr32ToSemiPlanarA8p, aligned::both<32, 16, 8>, d); }

ORVA_EX(BGR24I_YUYV16I) { convert(kernels().bgr24ToYuyv, aligned::dst<16, 8>, d); }
ORVA_EX(BGR24I_UYVY16I) { convert(kernels().bgr24ToUyvy, aligned::dst<16, 8>, d); }
ORVA_EX(BGR24I_UVYY16I) { convert(kernels().bgr24ToUvyy, aligned::dst<16, 8>, d); }
ORVA_EX(BGR24I_Y8PUV8I) { convert(kernels().bgr24ToSemiPlanar, aligned::dst<16, 8>, d); }
