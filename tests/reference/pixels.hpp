// Conversions of the scalar model that move pixels one by one without arithmetic.
#pragma once

#include "reference/bytes.hpp"

namespace reference {

// The places of one pixel, and the constant alpha's byte.
struct PixelPlaces {
    Source from, fromAlpha;
    Destination to, toAlpha;
    std::uint8_t alphaValue;

    const PixelPlaces& copy(int bytes) const {
        for (int i = 0; i < bytes; ++i)
            to[i] = from[i];
        return *this;
    }
};

inline void movePixels(const Descriptor& d, int sourceBytes, int destinationBytes,
                       void (*move)(const PixelPlaces&)) {
    PixelPlaces p{Source(d.srcData), Source(d.srcPlane2Data), Destination(d.dstData),
                  Destination(d.dstPlane2Data), static_cast<std::uint8_t>(d.alphaValue)};
    const auto advance = [&p](std::int64_t from, std::int64_t fromAlpha, std::int64_t to,
                              std::int64_t toAlpha) {
        p.from += from;
        p.fromAlpha += fromAlpha;
        p.to += to;
        p.toAlpha += toAlpha;
    };
    for (std::uint32_t row = 0; row < d.srcHeight; ++row) {
        for (std::uint32_t x = 0; x < d.dstWidth; ++x) {
            move(p);
            advance(sourceBytes, 1, destinationBytes, 1);
        }
        advance(d.srcRowGap, d.srcPlane2RowGap, d.dstRowGap, d.dstPlane2RowGap);
    }
}

}  // namespace reference
