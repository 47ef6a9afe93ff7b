// Lanes of which the first 12 bytes are used, and the same bytes without gaps: four vectors of such
// lanes are three whole ones.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

template <class V> struct Twelves { V first, second, third; };
template <class V> struct TwelvesInLanes { V a, b, c, d; };

// The bytes to join may begin a little later in each vector.
template <int before = 0>
ORVA_INLINE Twelves<Vec128> joinTwelves(Vec128 a, Vec128 b, Vec128 c, Vec128 d) {
    return {bytesDown<before>(a) | bytesUp<12 - before>(b),
            bytesDown<4 + before>(b) | bytesUp<8 - before>(c),
            bytesDown<8 + before>(c) | bytesUp<4 - before>(d)};
}
ORVA_INLINE TwelvesInLanes<Vec128> spreadTwelves(const Twelves<Vec128>& in) {
    return {in.first, bytesDown<12>(in.first) | bytesUp<4>(in.second),
            bytesDown<8>(in.second) | bytesUp<8>(in.third), bytesDown<4>(in.third)};
}

#if defined(__AVX512BW__)

ORVA_INLINE Twelves<Vec512> joinTwelves(Vec512 a, Vec512 b, Vec512 c, Vec512 d) {
    // 12 of the 16 dwords of each vector are used: 0 1 2, 4 5 6, 8 9 10, 12 13 14.
    const __m512i ab = _mm512_setr_epi32(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20);
    const __m512i bc =
        _mm512_setr_epi32(5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25);
    const __m512i cd =
        _mm512_setr_epi32(10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25, 26, 28, 29, 30);
    return {{_mm512_permutex2var_epi32(a.v, ab, b.v)},
            {_mm512_permutex2var_epi32(b.v, bc, c.v)},
            {_mm512_permutex2var_epi32(c.v, cd, d.v)}};
}
ORVA_INLINE TwelvesInLanes<Vec512> spreadTwelves(const Twelves<Vec512>& in) {
    const __m512i a = _mm512_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 9, 9, 10, 11, 12);
    const __m512i b =
        _mm512_setr_epi32(12, 13, 14, 15, 15, 16, 17, 18, 18, 19, 20, 21, 21, 22, 23, 24);
    const __m512i c =
        _mm512_setr_epi32(8, 9, 10, 11, 11, 12, 13, 14, 14, 15, 16, 17, 17, 18, 19, 20);
    const __m512i d = _mm512_setr_epi32(4, 5, 6, 7, 7, 8, 9, 10, 10, 11, 12, 13, 13, 14, 15, 15);
    return {{_mm512_permutexvar_epi32(a, in.first.v)},
            {_mm512_permutex2var_epi32(in.first.v, b, in.second.v)},
            {_mm512_permutex2var_epi32(in.second.v, c, in.third.v)},
            {_mm512_permutexvar_epi32(d, in.third.v)}};
}

#elif defined(__AVX2__)

ORVA_INLINE Twelves<Vec256> joinTwelves(Vec256 a, Vec256 b, Vec256 c, Vec256 d) {
    // 6 of the 8 dwords of each vector are used, 0 1 2 and 4 5 6. Each vector's six are rotated to
    // where they go, then neighbours are blended.
    const __m256i ra = _mm256_permutevar8x32_epi32(a.v, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
    const __m256i rb = _mm256_permutevar8x32_epi32(b.v, _mm256_setr_epi32(2, 4, 5, 6, 7, 7, 0, 1));
    const __m256i rc = _mm256_permutevar8x32_epi32(c.v, _mm256_setr_epi32(5, 6, 7, 7, 0, 1, 2, 4));
    const __m256i rd = _mm256_permutevar8x32_epi32(d.v, _mm256_setr_epi32(7, 7, 0, 1, 2, 4, 5, 6));
    return {{_mm256_blend_epi32(ra, rb, 0xC0)},
            {_mm256_blend_epi32(rb, rc, 0xF0)},
            {_mm256_blend_epi32(rc, rd, 0xFC)}};
}
ORVA_INLINE TwelvesInLanes<Vec256> spreadTwelves(const Twelves<Vec256>& in) {
    // Blends bring a vector's six dwords together, each where it was.
    const __m256i ab = _mm256_blend_epi32(in.second.v, in.first.v, 0xC0);
    const __m256i bc = _mm256_blend_epi32(in.third.v, in.second.v, 0xF0);
    return {{_mm256_permutevar8x32_epi32(in.first.v, _mm256_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6))},
            {_mm256_permutevar8x32_epi32(ab, _mm256_setr_epi32(6, 7, 0, 1, 1, 2, 3, 4))},
            {_mm256_permutevar8x32_epi32(bc, _mm256_setr_epi32(4, 5, 6, 7, 7, 0, 1, 2))},
            {_mm256_permutevar8x32_epi32(in.third.v, _mm256_setr_epi32(2, 3, 4, 5, 5, 6, 7, 7))}};
}

#endif

}  // namespace orva::ORVA_ISA
