/* A plug-in with both libraries within. Of all its names it shows its host only this one. */
#include <orva/convert.h>
#include <orva/orva.h>

__attribute__((visibility("default"))) int plugin(const OrvaConversionDescriptor* conversion) {
    ORVA_SSE2_BGR32I_UYVY16I(conversion->srcData, conversion->dstData, 0, 0, 0, 0);
    ORVA_SSE2_UYVY16I_BGR32I_EX(conversion);
    return orva_convert(0, 0, 0, 0);
}
