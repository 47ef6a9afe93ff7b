// RGB of 8 bits in memory: 16 * lanes pixels at once, of four bytes each in vectors.
#pragma once

#include "picture/passes.hpp"
#include "rgb/pixels.hpp"
#include "simd/bgr24.hpp"
#include "simd/reorder.hpp"

namespace orva::ORVA_ISA {

// From pixel x on; of 3 bytes, the fourth ones are unspecified.
template <unsigned bytes> ORVA_INLINE Pixels16<Wide> takePixels(const uint8_t* row, size_t x) {
    const uint8_t* const p = row + bytes * x;
    constexpr size_t quarter = 4 * Wide::lanes * bytes;
    if constexpr (bytes == 3)
        return {loadFront24(p, Wide()), loadFront24(p + quarter, Wide()),
                loadFront24(p + 2 * quarter, Wide()), loadBack24(p + 3 * quarter, Wide())};
    else
        return {Wide::load(p), Wide::load(p + quarter), Wide::load(p + 2 * quarter),
                Wide::load(p + 3 * quarter)};
}

template <unsigned bytes>
ORVA_INLINE void putPixels(const Pixels16<Wide>& pixels, uint8_t* row, size_t x) {
    uint8_t* const p = row + bytes * x;
    if constexpr (bytes == 3) {
        const Twelves<Wide> packed = pack24(pixels.a, pixels.b, pixels.c, pixels.d);
        packed.first.store(p);
        packed.second.store(p + Wide::bytes);
        packed.third.store(p + 2 * Wide::bytes);
    } else {
        pixels.a.store(p);
        pixels.b.store(p + Wide::bytes);
        pixels.c.store(p + 2 * Wide::bytes);
        pixels.d.store(p + 3 * Wide::bytes);
    }
}

// A single pixel; of 3 bytes, the fourth one is 0.
template <unsigned bytes> ORVA_INLINE uint32_t pixelAt(const uint8_t* p) {
    return p[0] | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 |
           (bytes == 4 ? uint32_t(p[bytes - 1]) << 24 : 0);
}

// ---- Alpha: a pixel's first or fourth byte ----

// 16 * lanes alpha bytes, each in its pixel, the other bytes zero.
template <bool alphaFirst> ORVA_INLINE Pixels16<Wide> alphaInPixels(const uint8_t* p) {
    const Wide bytes = spreadQuarters(Wide::load(p)), zero = Wide::zero();
    const auto widened = [&](Wide a, bool words) {
        return words ? unpackLow16(alphaFirst ? a : zero, alphaFirst ? zero : a)
                     : unpackHigh16(alphaFirst ? a : zero, alphaFirst ? zero : a);
    };
    const Wide low = alphaFirst ? unpackLow8(bytes, zero) : unpackLow8(zero, bytes);
    const Wide high = alphaFirst ? unpackHigh8(bytes, zero) : unpackHigh8(zero, bytes);
    return {widened(low, true), widened(low, false), widened(high, true), widened(high, false)};
}

template <bool alphaFirst> ORVA_INLINE Wide alphaOf(const Pixels16<Wide>& pixels) {
    const auto alpha = [](Wide p) {
        return alphaFirst ? p & Wide::all32(0xFF) : shiftRight32<24>(p);
    };
    return groupQuarters(packBytes(packWords(alpha(pixels.a), alpha(pixels.b)),
                                   packWords(alpha(pixels.c), alpha(pixels.d))));
}

}  // namespace orva::ORVA_ISA
