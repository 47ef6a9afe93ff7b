// The numbers of one conversion, computed once per call from the definitions of the standards.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>

namespace orva::picture {

// A pass's words hold luma at 10-bit scale (4 * Y of 8 bits) and chroma at twice that, centred on
// 0.

struct ChromaWeights {
    int16_t cb, cr;
};

// YCbCr to 8-bit RGB: 16 fraction bits.
struct ToPixels {
    int16_t luma;
    ChromaWeights blue, green, red;
    int32_t start;  // the luma offset and half a code
};

// YCbCr to YCbCr: 14 fraction bits for luma, 15 for chroma.
struct ToSamples {
    int16_t luma;
    ChromaWeights toLuma, toCb, toCr;
    int32_t lumaStart, chromaStart;
};

struct RgbWeights {
    int16_t blue, green, red;
};

// RGB to YCbCr: 13 fraction bits, for chroma of a weighted sum of four pixels.
struct FromPixels {
    RgbWeights luma, cb, cr;
    int32_t lumaStart, chromaStart;
};

struct Constants {
    ToPixels toPixels;
    ToSamples toSamples;
    FromPixels fromPixels;
    uint8_t order[4];  // where each byte of a pixel or a packed pair comes from
    uint8_t alpha;
};

// One side of a conversion.
struct Coding {
    Matrix matrix;
    Range range;
    int bits;
};

// redFirst: pixels begin with red, so that blue and red are exchanged.
ToPixels toPixels(const Coding& source, bool redFirst);
ToSamples toSamples(const Coding& source, const Coding& destination);
FromPixels fromPixels(const Coding& destination, bool redFirst);

}  // namespace orva::picture
