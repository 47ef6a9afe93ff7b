// The exports that do a colour conversion and then an alpha-plane step of their own, and those that
// take the alpha plane out of an image. The step runs on a private copy of the descriptor whose
// main planes are the alpha planes, so it chooses its kernel by their fields.
#include "alpha/kernels.hpp"
#include "frame/export.hpp"

using namespace orva;

using Export = void(ORVA_CALL*)(const Descriptor*);

static void sourceBecomesAlpha(Descriptor& d) {
    d.srcData = d.srcPlane2Data;
    d.srcPitch = d.srcPlane2Pitch;
    d.srcRowGap = d.srcPlane2RowGap;
}

static void destinationBecomesAlpha(Descriptor& d) {
    d.dstData = d.dstPlane2Data;
    d.dstPitch = d.dstPlane2Pitch;
    d.dstRowGap = d.dstPlane2RowGap;
}

// Colour, and a destination alpha plane filled with the constant.
static void fillAfter(Export colour, const Descriptor* d) {
    colour(d);
    Descriptor alpha = *d;
    alpha.srcData = nullptr;
    alpha.srcPitch = alpha.srcRowGap = 0;
    destinationBecomesAlpha(alpha);
    convert(activeKernels->alpha.fill, aligned::dst<32, 32>, &alpha);
}

// Colour, and the source's alpha plane copied.
static void copyAfter(Export colour, const Descriptor* d) {
    colour(d);
    Descriptor alpha = *d;
    sourceBecomesAlpha(alpha);
    destinationBecomesAlpha(alpha);
    convert(activeKernels->alpha.copy, aligned::dst<32, 32>, &alpha);
}

// The source's alpha plane copied to the destination's main plane.
static void extract(const Descriptor* d) {
    Descriptor alpha = *d;
    sourceBecomesAlpha(alpha);
    convert(activeKernels->alpha.copy, aligned::dst<32, 32>, &alpha);
}

ORVA_EX(Y8PUV8I_BGR24IA8P) { fillAfter(ORVA_SSE2_Y8PUV8I_BGR24I_EX, d); }
ORVA_EX(UVYY16I_UYVY16IA8P) { fillAfter(ORVA_SSE2_UVYY16I_UYVY16I_EX, d); }
ORVA_EX(UVYY16I_BGR24IA8P) { fillAfter(ORVA_SSE2_UVYY16I_BGR24I_EX, d); }
ORVA_EX(YUYV16I_YUYV16IA8P) { fillAfter(ORVA_SSE2_YUYV16I_YUYV16I_EX, d); }
ORVA_EX(YUYV16I_UYVY16IA8P) { fillAfter(ORVA_SSE2_YUYV16I_UYVY16I_EX, d); }
ORVA_EX(YUYV16I_BGR24IA8P) { fillAfter(ORVA_SSE2_YUYV16I_BGR24I_EX, d); }
ORVA_EX(UYVY16I_YUYV16IA8P) { fillAfter(ORVA_SSE2_UYVY16I_YUYV16I_EX, d); }
ORVA_EX(UYVY16I_Y8PUV8IA8P) { fillAfter(ORVA_SSE2_UYVY16I_Y8PUV8I_EX, d); }
ORVA_EX(UYVY16I_UYVY16IA8P) { fillAfter(ORVA_SSE2_UYVY16I_UYVY16I_EX, d); }
ORVA_EX(UYVY16I_UVYY16IA8P) { fillAfter(ORVA_SSE2_UYVY16I_UVYY16I_EX, d); }
ORVA_EX(UYVY16I_BGR24IA8P) { fillAfter(ORVA_SSE2_UYVY16I_BGR24I_EX, d); }
ORVA_EX(BGR24I_YUYV16IA8P) { fillAfter(ORVA_SSE2_BGR24I_YUYV16I_EX, d); }
ORVA_EX(BGR24I_Y8PUV8IA8P) { fillAfter(ORVA_SSE2_BGR24I_Y8PUV8I_EX, d); }
ORVA_EX(BGR24I_UYVY16IA8P) { fillAfter(ORVA_SSE2_BGR24I_UYVY16I_EX, d); }
ORVA_EX(BGR24I_UVYY16IA8P) { fillAfter(ORVA_SSE2_BGR24I_UVYY16I_EX, d); }
ORVA_EX(BGR24I_BGR24IA8P) { fillAfter(ORVA_SSE2_BGR24I_BGR24I_EX, d); }

ORVA_EX(YUYV16IA8P_YUYV16IA8P) { copyAfter(ORVA_SSE2_YUYV16I_YUYV16I_EX, d); }
ORVA_EX(YUYV16IA8P_UYVY16IA8P) { copyAfter(ORVA_SSE2_YUYV16I_UYVY16I_EX, d); }
ORVA_EX(YUYV16IA8P_BGR24IA8P) { copyAfter(ORVA_SSE2_YUYV16I_BGR24I_EX, d); }
ORVA_EX(UYVY16IA8P_YUYV16IA8P) { copyAfter(ORVA_SSE2_UYVY16I_YUYV16I_EX, d); }
ORVA_EX(UYVY16IA8P_UYVY16IA8P) { copyAfter(ORVA_SSE2_UYVY16I_UYVY16I_EX, d); }
ORVA_EX(UYVY16IA8P_BGR24IA8P) { copyAfter(ORVA_SSE2_UYVY16I_BGR24I_EX, d); }
ORVA_EX(BGR24IA8P_YUYV16IA8P) { copyAfter(ORVA_SSE2_BGR24I_YUYV16I_EX, d); }
ORVA_EX(BGR24IA8P_Y8PUV8IA8P) { copyAfter(ORVA_SSE2_BGR24I_Y8PUV8I_EX, d); }
ORVA_EX(BGR24IA8P_UYVY16IA8P) { copyAfter(ORVA_SSE2_BGR24I_UYVY16I_EX, d); }
ORVA_EX(BGR24IA8P_UVYY16IA8P) { copyAfter(ORVA_SSE2_BGR24I_UVYY16I_EX, d); }
ORVA_EX(BGR24IA8P_BGR24IA8P) { copyAfter(ORVA_SSE2_BGR24I_BGR24I_EX, d); }

ORVA_EX(UYVY16IA8P_A8P) { extract(d); }
ORVA_EX(YUYV16IA8P_A8P) { extract(d); }
ORVA_EX(BGR24IA8P_A8P) { extract(d); }
