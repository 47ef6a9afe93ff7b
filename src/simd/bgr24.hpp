// Vectors of 4-byte pixels from and to memory with 3 bytes per pixel.
//
// A vector holds 4 * lanes pixels, whose 12 * lanes bytes are loaded as part of a whole vector. A
// front load reads the 4 * lanes bytes behind them as well, a back load those before them, so that
// a block that begins with front loads and ends with a back load reads nothing outside itself. The
// fourth bytes of loaded pixels are unspecified, those of packed pixels are dropped.
#pragma once

#include "simd/twelves.hpp"

namespace orva::ORVA_ISA {

#if ORVA_SHUFFLES_BYTES

// The first 12 bytes of each lane to 4 pixels, and 4 pixels to the first 12 bytes.
template <class V> ORVA_INLINE V widen24(V bytes) {
    return shuffleBytes(
        bytes, V::repeat(Vec128::of8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1)));
}
template <class V> ORVA_INLINE V narrow24(V pixels) {
    return shuffleBytes(
        pixels, V::repeat(Vec128::of8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1)));
}

#else

ORVA_INLINE Vec128 widen24(Vec128 bytes) {
    const __m128i first = _mm_unpacklo_epi32(bytes.v, _mm_srli_si128(bytes.v, 3));
    const __m128i second =
        _mm_unpacklo_epi32(_mm_srli_si128(bytes.v, 6), _mm_srli_si128(bytes.v, 9));
    return {_mm_unpacklo_epi64(first, second)};
}

#endif

ORVA_INLINE Vec128 loadFront24(const uint8_t* p, Vec128) { return widen24(Vec128::load(p)); }
ORVA_INLINE Vec128 loadBack24(const uint8_t* p, Vec128) {
    return widen24(bytesDown<4>(Vec128::load(p - 4)));
}

// 16 * lanes pixels.
#if ORVA_SHUFFLES_BYTES
template <class V> ORVA_INLINE Twelves<V> pack24(V a, V b, V c, V d) {
    return joinTwelves(narrow24(a), narrow24(b), narrow24(c), narrow24(d));
}
#else
ORVA_INLINE Twelves<Vec128> pack24(Vec128 a, Vec128 b, Vec128 c, Vec128 d) {
    // Two pixels shrink to the low 6 bytes of each half; moving those of the low half up by a word
    // makes 12 bytes in a row, 2 bytes into the vector.
    const auto narrow = [](Vec128 pixels) {
        const __m128i even = _mm_and_si128(pixels.v, _mm_set1_epi64x(0xFFFFFF));
        const __m128i odd =
            _mm_and_si128(_mm_srli_epi64(pixels.v, 8), _mm_set1_epi64x(0xFFFFFF000000));
        return Vec128{_mm_shufflelo_epi16(_mm_or_si128(even, odd), _MM_SHUFFLE(2, 1, 0, 3))};
    };
    return joinTwelves<2>(narrow(a), narrow(b), narrow(c), narrow(d));
}
#endif

#if defined(__AVX512BW__)

ORVA_INLINE Vec512 loadFront24(const uint8_t* p, Vec512) {
    const __m512i toLanes = _mm512_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 9, 9, 10, 11, 12);
    return widen24(Vec512{_mm512_permutexvar_epi32(toLanes, Vec512::load(p).v)});
}
ORVA_INLINE Vec512 loadBack24(const uint8_t* p, Vec512) {
    const __m512i toLanes =
        _mm512_setr_epi32(4, 5, 6, 7, 7, 8, 9, 10, 10, 11, 12, 13, 13, 14, 15, 15);
    return widen24(Vec512{_mm512_permutexvar_epi32(toLanes, Vec512::load(p - 16).v)});
}

#elif defined(__AVX2__)

ORVA_INLINE Vec256 loadFront24(const uint8_t* p, Vec256) {
    const __m256i toLanes = _mm256_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6);
    return widen24(Vec256{_mm256_permutevar8x32_epi32(Vec256::load(p).v, toLanes)});
}
ORVA_INLINE Vec256 loadBack24(const uint8_t* p, Vec256) {
    const __m256i toLanes = _mm256_setr_epi32(2, 3, 4, 5, 5, 6, 7, 7);
    return widen24(Vec256{_mm256_permutevar8x32_epi32(Vec256::load(p - 8).v, toLanes)});
}

#endif

}  // namespace orva::ORVA_ISA
