// BGR to YCbCr of the scalar model: the colour transform and the conversions made of it.
#pragma once

#include "reference/layouts.hpp"

namespace reference {

// Weights with 15 fraction bits.
struct RgbWeights {
    int r, g, b;
};
struct RgbToYuv {
    RgbWeights y, cb, cr;
    int offset;
    LumaBounds bounds;
};
RgbToYuv rgbToYuvConstants(const Descriptor& d);
YuvPair rgbToYuv(const RgbToYuv& constants, const Bgr& even, const Bgr& odd);

enum class AlphaPlane { no, yes };
void bgrToYuv(const Descriptor& d, int pixelBytes, const YuvLayout& layout, AlphaPlane alpha);

// What aligned streaming BGR24I to UVYY16I writes instead of that format.
void bgr24ToLumaWords(const Descriptor& d);

// Every second or fourth pixel of BGR32I lines.
void reduceToYuv(const Descriptor& d, const YuvLayout& layout, int factor);

// Every pixel of BGR32I twice on each of two lines.
void enlargeToYuv(const Descriptor& d, const YuvLayout& layout);

}  // namespace reference
