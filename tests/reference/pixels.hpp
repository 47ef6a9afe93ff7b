// Conversions of the scalar model that move pixels one by one without arithmetic.
#pragma once

#include "reference/bytes.hpp"

namespace reference {

// Calls `move(source, sourceAlpha, destination, destinationAlpha)` at every pixel's places.
template <typename Move>
void movePixels(const Descriptor& d, int sourceBytes, int destinationBytes, Move move) {
    Source source(d.srcData), sourceAlpha(d.srcPlane2Data);
    Destination destination(d.dstData), destinationAlpha(d.dstPlane2Data);
    for (std::uint32_t row = 0; row < d.srcHeight; ++row) {
        for (std::uint32_t x = 0; x < d.dstWidth; ++x) {
            move(source, sourceAlpha, destination, destinationAlpha);
            source += sourceBytes;
            sourceAlpha += 1;
            destination += destinationBytes;
            destinationAlpha += 1;
        }
        source += d.srcRowGap;
        sourceAlpha += d.srcPlane2RowGap;
        destination += d.dstRowGap;
        destinationAlpha += d.dstPlane2RowGap;
    }
}

inline void copyBytes(Source source, Destination destination, int count) {
    for (int i = 0; i < count; ++i)
        destination[i] = source[i];
}

inline void copyAlphaPlane(const Descriptor& d) {
    movePixels(d, 1, 1, [](Source s, Source, Destination t, Destination) { t[0] = s[0]; });
}
inline void fillAlphaPlane(const Descriptor& d) {
    const auto alpha = static_cast<std::uint8_t>(d.alphaValue);
    movePixels(d, 0, 1, [=](Source, Source, Destination t, Destination) { t[0] = alpha; });
}

}  // namespace reference
