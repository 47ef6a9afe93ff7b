// The exports from YCbCr to RGB.
#include "frame/export.hpp"
#include "yuv_to_rgb/kernels.hpp"

using namespace orva;

ORVA_EX(UYVY16I_BGR32I) { convert(activeKernels->yuvToRgb.uyvyToBgr32, aligned::bgr32ToYuv, d); }
ORVA_EX(YUYV16I_BGR32I) { convert(activeKernels->yuvToRgb.yuyvToBgr32, aligned::packedToBgr32, d); }
ORVA_EX(UYVY16IA8P_BGR32I) {
    convert(activeKernels->yuvToRgb.uyvyA8pToBgr32, aligned::packedToBgr32, d);
}
ORVA_EX(YUYV16IA8P_BGR32I) {
    convert(activeKernels->yuvToRgb.yuyvA8pToBgr32, aligned::packedToBgr32, d);
}
