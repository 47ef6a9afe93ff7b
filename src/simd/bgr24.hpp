// Vectors of 4-byte pixels from and to memory with 3 bytes per pixel.
//
// A vector holds 4 * lanes pixels, whose 12 * lanes bytes are loaded as part of a whole vector. A
// front load reads the 4 * lanes bytes behind them as well, a back load those before them, so that
// a block that begins with front loads and ends with a back load reads nothing outside itself. The
// fourth bytes of loaded pixels are unspecified, those of packed pixels are dropped.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// 16 * lanes pixels of 3 bytes, in memory order.
template <class V> struct Packed24 { V first, second, third; };

#if defined(__SSSE3__)

// The first 12 bytes of each lane to 4 pixels, and 4 pixels to the first 12 bytes.
template <class V> ORVA_INLINE V widen24(V bytes) {
    return shuffleBytes(
        bytes, V::repeat(_mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1)));
}
template <class V> ORVA_INLINE V narrow24(V pixels) {
    return shuffleBytes(
        pixels, V::repeat(_mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1)));
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
    return widen24(Vec128{_mm_srli_si128(Vec128::load(p - 4).v, 4)});
}

ORVA_INLINE Packed24<Vec128> pack24(Vec128 a, Vec128 b, Vec128 c, Vec128 d) {
#if defined(__SSSE3__)
    constexpr int before = 0;
    const auto narrow = [](Vec128 pixels) { return narrow24(pixels).v; };
#else
    // Two pixels shrink to the low 6 bytes of each half; moving those of the low half up by a word
    // makes 12 bytes in a row, 2 bytes into the vector.
    constexpr int before = 2;
    const auto narrow = [](Vec128 pixels) {
        const __m128i even = _mm_and_si128(pixels.v, _mm_set1_epi64x(0xFFFFFF));
        const __m128i odd =
            _mm_and_si128(_mm_srli_epi64(pixels.v, 8), _mm_set1_epi64x(0xFFFFFF000000));
        return _mm_shufflelo_epi16(_mm_or_si128(even, odd), _MM_SHUFFLE(2, 1, 0, 3));
    };
#endif
    const __m128i na = narrow(a), nb = narrow(b), nc = narrow(c), nd = narrow(d);
    return {
        {_mm_or_si128(_mm_srli_si128(na, before), _mm_slli_si128(nb, 12 - before))},
        {_mm_or_si128(_mm_srli_si128(nb, 4 + before), _mm_slli_si128(nc, 8 - before))},
        {_mm_or_si128(_mm_srli_si128(nc, 8 + before), _mm_slli_si128(nd, 4 - before))},
    };
}

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

ORVA_INLINE Packed24<Vec512> pack24(Vec512 a, Vec512 b, Vec512 c, Vec512 d) {
    // 12 of the 16 dwords of each vector are used: 0 1 2, 4 5 6, 8 9 10, 12 13 14.
    const __m512i ab = _mm512_setr_epi32(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20);
    const __m512i bc =
        _mm512_setr_epi32(5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25);
    const __m512i cd =
        _mm512_setr_epi32(10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25, 26, 28, 29, 30);
    const __m512i na = narrow24(a).v, nb = narrow24(b).v, nc = narrow24(c).v, nd = narrow24(d).v;
    return {{_mm512_permutex2var_epi32(na, ab, nb)},
            {_mm512_permutex2var_epi32(nb, bc, nc)},
            {_mm512_permutex2var_epi32(nc, cd, nd)}};
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

ORVA_INLINE Packed24<Vec256> pack24(Vec256 a, Vec256 b, Vec256 c, Vec256 d) {
    // 6 of the 8 dwords of each vector are used, 0 1 2 and 4 5 6. Each vector's six are rotated to
    // where they go, then neighbours are blended.
    const auto rotated = [](Vec256 pixels, __m256i order) {
        return _mm256_permutevar8x32_epi32(narrow24(pixels).v, order);
    };
    const __m256i ra = rotated(a, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
    const __m256i rb = rotated(b, _mm256_setr_epi32(2, 4, 5, 6, 7, 7, 0, 1));
    const __m256i rc = rotated(c, _mm256_setr_epi32(5, 6, 7, 7, 0, 1, 2, 4));
    const __m256i rd = rotated(d, _mm256_setr_epi32(7, 7, 0, 1, 2, 4, 5, 6));
    return {{_mm256_blend_epi32(ra, rb, 0xC0)},
            {_mm256_blend_epi32(rb, rc, 0xF0)},
            {_mm256_blend_epi32(rc, rd, 0xFC)}};
}

#endif

}  // namespace orva::ORVA_ISA
