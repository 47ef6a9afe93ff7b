// RGB of 8 bits in memory: 16 * lanes pixels at once, of four bytes each in vectors.
#pragma once

#include "picture/passes.hpp"
#include "rgb/pixels.hpp"
#include "simd/bgr24.hpp"
#include "simd/reorder.hpp"

namespace orva::ORVA_ISA {

ORVA_INLINE Pixels16<Wide> takePixels32(const uint8_t* p) {
    return {Wide::load(p), Wide::load(p + Wide::bytes), Wide::load(p + 2 * Wide::bytes),
            Wide::load(p + 3 * Wide::bytes)};
}

// The fourth bytes are unspecified.
ORVA_INLINE Pixels16<Wide> takePixels24(const uint8_t* p) {
    constexpr size_t quarter = 12 * Wide::lanes;
    return {loadFront24(p, Wide()), loadFront24(p + quarter, Wide()),
            loadFront24(p + 2 * quarter, Wide()), loadBack24(p + 3 * quarter, Wide())};
}

struct Pixels32 {
    ORVA_INLINE static void put(const Pixels16<Wide>& pixels, const picture::Target& to, size_t x) {
        uint8_t* const p = to.plane[0] + 4 * x;
        pixels.a.store(p);
        pixels.b.store(p + Wide::bytes);
        pixels.c.store(p + 2 * Wide::bytes);
        pixels.d.store(p + 3 * Wide::bytes);
    }
};

struct Pixels24 {
    ORVA_INLINE static void put(const Pixels16<Wide>& pixels, const picture::Target& to, size_t x) {
        uint8_t* const p = to.plane[0] + 3 * x;
        const Packed24<Wide> packed = pack24(pixels.a, pixels.b, pixels.c, pixels.d);
        packed.first.store(p);
        packed.second.store(p + Wide::bytes);
        packed.third.store(p + 2 * Wide::bytes);
    }
};

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
