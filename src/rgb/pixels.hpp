// BGR pixels in vectors: four bytes each, in memory order.
//
// The fourth byte is part of a pixel. Alpha is not: it is a plane, or the descriptor's constant.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// 8 * V::lanes pixels.
template <class V> struct Pixels8 { V a, b; };

// 16 * V::lanes pixels.
template <class V> struct Pixels16 { V a, b, c, d; };

// 16 * V::lanes bytes as fourth bytes of otherwise empty pixels.
template <class V> ORVA_INLINE Pixels16<V> asFourthBytes(V bytes) {
    const V quarters = spreadQuarters(bytes), zero = V::zero();
    const V low = unpackLow8(zero, quarters), high = unpackHigh8(zero, quarters);
    return {unpackLow16(zero, low), unpackHigh16(zero, low), unpackLow16(zero, high),
            unpackHigh16(zero, high)};
}

// The bytes of pixels whose other bytes are zero, in memory order.
template <class V> ORVA_INLINE V bytesOfDwords(const Pixels16<V>& dwords) {
    return groupQuarters(packBytes(packWords(dwords.a, dwords.b), packWords(dwords.c, dwords.d)));
}

template <class V> ORVA_INLINE V fourthBytes(const Pixels16<V>& pixels) {
    return bytesOfDwords<V>({shiftRight32<24>(pixels.a), shiftRight32<24>(pixels.b),
                             shiftRight32<24>(pixels.c), shiftRight32<24>(pixels.d)});
}

}  // namespace orva::ORVA_ISA
