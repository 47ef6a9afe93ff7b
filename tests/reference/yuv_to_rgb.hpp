// YCbCr to BGR of the scalar model: the colour transform and the conversions made of it.
#pragma once

#include "reference/layouts.hpp"

namespace reference {

// Which part of the signed 16-bit luma difference enters the product.
enum class LumaWidth { lowByte, full };

// Fixed point with 14 fraction bits; the chroma gains are halved, for a doubled chroma difference.
struct YuvToRgb {
    int offset, lumaGain, blueCb, greenCb, greenCr, redCr;
    LumaBounds bounds;
};
YuvToRgb yuvToRgbConstants(const Descriptor& d);
Bgr yuvToRgb(const YuvToRgb& constants, int y, int cb, int cr, LumaWidth width);

// Fourth bytes from the constant alpha: in a block, and in a pair converted singly.
std::uint8_t blockAlpha(std::int32_t alphaValue);
std::uint8_t pairAlpha(std::int32_t alphaValue, int odd);

enum class FourthByte { none, constant, plane };
void yuvToBgr(const Descriptor& d, const YuvLayout& layout, FourthByte fourth,
              bool (*fast)(const Descriptor&));

// Every second or fourth pixel of UYVY16I lines, whatever the source's name says.
void reduceToBgr32(const Descriptor& d, int factor);

}  // namespace reference
