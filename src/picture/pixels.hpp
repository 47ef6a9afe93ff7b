// RGB of 8 bits in memory: 16 * lanes pixels at once, of four bytes each in vectors.
#pragma once

#include "frame/memory_access.hpp"
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

template <unsigned bytes, class Stores>
ORVA_INLINE void putPixels(Stores stores, const Pixels16<Wide>& pixels, uint8_t* row, size_t x) {
    uint8_t* const p = row + bytes * x;
    if constexpr (bytes == 3) {
        const Twelves<Wide> packed = pack24(pixels.a, pixels.b, pixels.c, pixels.d);
        stores.put(packed.first, p);
        stores.put(packed.second, p + Wide::bytes);
        stores.put(packed.third, p + 2 * Wide::bytes);
    } else {
        stores.put(pixels.a, p);
        stores.put(pixels.b, p + Wide::bytes);
        stores.put(pixels.c, p + 2 * Wide::bytes);
        stores.put(pixels.d, p + 3 * Wide::bytes);
    }
}

// A single pixel; of 3 bytes, the fourth one is 0.
template <unsigned bytes> ORVA_INLINE uint32_t pixelAt(const uint8_t* p) {
    return p[0] | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 |
           (bytes == 4 ? uint32_t(p[bytes - 1]) << 24 : 0);
}

// ---- Alpha: a pixel's first or fourth byte, and a plane's ----

// 16 * lanes alpha bytes as fourth bytes, the others zero.
ORVA_INLINE Pixels16<Wide> alphaInPixels(const picture::Source& from, size_t x) {
    return asFourthBytes(Wide::load(from.plane[orva::alphaPlane] + x));
}

ORVA_INLINE Pixels16<Wide> withAlpha(const Pixels16<Wide>& pixels, const Pixels16<Wide>& alpha) {
    const Wide colour = Wide::all32(0xFFFFFF);
    return {(pixels.a & colour) | alpha.a, (pixels.b & colour) | alpha.b,
            (pixels.c & colour) | alpha.c, (pixels.d & colour) | alpha.d};
}

template <bool alphaFirst, class Stores>
ORVA_INLINE void putAlpha(Stores stores, const Pixels16<Wide>& pixels, const picture::Target& to,
                          size_t x) {
    uint8_t* const p = to.plane[orva::alphaPlane] + x;
    if constexpr (alphaFirst) {
        const Wide first = Wide::all32(0xFF);
        stores.put(bytesOfDwords<Wide>(
                       {pixels.a & first, pixels.b & first, pixels.c & first, pixels.d & first}),
                   p);
    } else {
        stores.put(fourthBytes(pixels), p);
    }
}

}  // namespace orva::ORVA_ISA
