// The bytes of words and dwords: taken apart and exchanged.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// The low or the high bytes of words, in words, multiplied by 2^scale, at most 64.
template <int scale, class V> ORVA_INLINE V lowBytes(V words) {
    if constexpr (scale == 0)
        return words & V::all16(0xFF);
    else
#if defined(__SSSE3__)
        return maddBytes(words, V::all16(1 << scale));
#else
        return shiftLeft16<scale>(words) & V::all16(0xFF << scale);
#endif
}
template <int scale, class V> ORVA_INLINE V highBytes(V words) {
    if constexpr (scale == 0)
        return shiftRight16<8>(words);
    else
#if defined(__SSSE3__)
        return maddBytes(words, V::all16(1 << (8 + scale)));
#else
        return shiftRight16<8 - scale>(words) & V::all16(0xFF << scale);
#endif
}

// The two middle bytes of each dword exchanged, and the two bytes of each word.
template <class V> ORVA_INLINE V swapMiddleBytes(V a) {
#if ORVA_SHUFFLES_BYTES
    return shuffleBytes(
        a, V::repeat(Vec128::of8(0, 2, 1, 3, 4, 6, 5, 7, 8, 10, 9, 11, 12, 14, 13, 15)));
#else
    return (a & V::all32(0xFF0000FF)) | (shiftLeft32<8>(a) & V::all32(0x00FF0000)) |
           (shiftRight32<8>(a) & V::all32(0x0000FF00));
#endif
}
template <class V> ORVA_INLINE V swapBytesOfWords(V a) {
    return shiftLeft16<8>(a) | shiftRight16<8>(a);
}

}  // namespace orva::ORVA_ISA
