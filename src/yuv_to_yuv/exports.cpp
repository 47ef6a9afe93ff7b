// The exports between YCbCr layouts. Each has kernels for equal and for different colour codes, and
// some of them go against their names; the header tells which, and hosts rely on it.
#include "frame/export.hpp"
#include "yuv_to_yuv/kernels.hpp"

using namespace orva;

// With equal codes bytes are only moved.
static void convert(Kernel move, Kernel matrix, const Descriptor* d) {
    convert(d->srcColorSpace == d->dstColorSpace ? move : matrix, aligned::dst<16, 16>, d);
}

static const YuvToYuvKernels& kernels() { return activeKernels->yuvToYuv; }

ORVA_EX(UYVY16I_UYVY16I) { convert(kernels().copy, kernels().uyvyMatrix, d); }
ORVA_EX(YUYV16I_YUYV16I) { convert(kernels().copy, kernels().yuyvMatrix, d); }
ORVA_EX(UYVY16I_YUYV16I) { convert(kernels().byteSwap, kernels().uyvyToYuyvMatrix, d); }
ORVA_EX(YUYV16I_UYVY16I) { convert(kernels().byteSwap, kernels().yuyvToUyvyMatrix, d); }
ORVA_EX(UVYY16I_UYVY16I) { convert(kernels().middleSwap, kernels().uyvyMatrix, d); }
ORVA_EX(UYVY16I_UVYY16I) { convert(kernels().middleSwap, kernels().uyvyMatrix, d); }
ORVA_EX(UYVY16I_Y8PUV8I) { convert(kernels().split, kernels().uyvyMatrix, d); }
