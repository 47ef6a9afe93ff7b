// The exports with positional arguments, kept for hosts that bind to them. They have no
// arguments for the image's size, so the descriptor they fill describes no pixels and they write
// nothing.
#include <orva/orva.h>

namespace {

using Export = void(ORVA_CALL*)(const OrvaConversionDescriptor*);

struct Arguments {
    const void* src;
    void* dst;
    int32_t pitch;
    int32_t colorSpace;
    int32_t range;
    int32_t alphaValue;
};

void convertNothing(Export conversion, bool takesRange, const Arguments& arguments) {
    OrvaConversionDescriptor d{};
    d.srcData = arguments.src;
    d.dstData = arguments.dst;
    d.srcPitch = arguments.pitch;
    d.dstPitch = arguments.pitch / 2;
    d.srcColorSpace = d.dstColorSpace = arguments.colorSpace;
    d.srcRange = d.dstRange = arguments.range;
    d.fullRange = takesRange && arguments.range == 1;
    d.alphaValue = arguments.alphaValue;
    conversion(&d);
}

}  // namespace

#define ORVA_POSITIONAL(formats, takesRange)                                                       \
    void ORVA_CALL ORVA_SSE2_##formats(const void* src, void* dst, int32_t pitch, int32_t,         \
                                       int32_t colorSpace, int32_t range) {                        \
        convertNothing(ORVA_SSE2_##formats##_EX, takesRange,                                       \
                       {src, dst, pitch, colorSpace, range, 0});                                   \
    }

#define ORVA_POSITIONAL_WITH_ALPHA(formats)                                                        \
    void ORVA_CALL ORVA_SSE2_##formats(const void* src, void* dst, int32_t pitch, int32_t,         \
                                       int32_t colorSpace, int32_t range, int32_t alphaValue) {    \
        convertNothing(ORVA_SSE2_##formats##_EX, true,                                             \
                       {src, dst, pitch, colorSpace, range, alphaValue});                          \
    }

ORVA_POSITIONAL(YUYV16I_YUYV16I, false)
ORVA_POSITIONAL_WITH_ALPHA(YUYV16I_BGR32I)
ORVA_POSITIONAL(YUYV16I_BGR24I, true)
ORVA_POSITIONAL(UYVY16I_UYVY16I, false)
ORVA_POSITIONAL_WITH_ALPHA(UYVY16I_BGR32I)
ORVA_POSITIONAL(UYVY16I_BGR24I, true)
ORVA_POSITIONAL(BGR32I_YUYV16I, true)
ORVA_POSITIONAL(BGR32I_UYVY16I, true)
ORVA_POSITIONAL(BGR32I_UVYY16I, true)
ORVA_POSITIONAL(BGR32I_BGR32I, false)
ORVA_POSITIONAL(BGR32I_BGR24I, false)
ORVA_POSITIONAL(BGR32I_A8P, false)
ORVA_POSITIONAL(BGR24I_YUYV16I, true)
ORVA_POSITIONAL(BGR24I_UYVY16I, true)
ORVA_POSITIONAL(BGR24I_UVYY16I, true)
ORVA_POSITIONAL(BGR24I_BGR32I, false)
ORVA_POSITIONAL(BGR24I_BGR24I, false)
