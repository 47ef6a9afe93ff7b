// The numbers of one conversion, computed once per call from the definitions of the standards.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>

namespace orva::picture {

// The maths takes luma at 10-bit scale (4 * Y of 8 bits) and chroma at twice that, centred on 0.

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

// Of a pixel's bytes in memory order; 0 for alpha.
struct PixelWeights {
    int16_t byte[4];
};

// RGB to YCbCr: 15 fraction bits for 8-bit luma, 13 for 10-bit luma. Chroma is a sum of four
// pixels, so that its 13 are 15.
struct FromPixels {
    PixelWeights luma, cb, cr;
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

// Where the bytes of pixels lie. Those of 3 bytes have their alpha, if they get any, behind them.
struct PixelOrder {
    uint8_t blue, green, red, alpha;

    bool redFirst() const { return red < blue; }
};

ToPixels toPixels(const Coding& source, const PixelOrder& destination);
ToSamples toSamples(const Coding& source, const Coding& destination);
FromPixels fromPixels(const PixelOrder& source, const Coding& destination);

}  // namespace orva::picture
