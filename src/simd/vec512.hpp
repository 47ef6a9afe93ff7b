// Four 128-bit lanes: the wide vector of the AVX-512 table. vec256.hpp tells the orders of lanes.
#pragma once

namespace orva::ORVA_ISA {

struct Vec512 {
    static constexpr unsigned lanes = 4;
    static constexpr unsigned bytes = 64;

    __m512i v;

    ORVA_INLINE static Vec512 zero() { return {_mm512_setzero_si512()}; }
    ORVA_INLINE static Vec512 all8(uint8_t value) { return {_mm512_set1_epi8(char(value))}; }
    ORVA_INLINE static Vec512 all16(int value) { return {_mm512_set1_epi16(short(value))}; }
    ORVA_INLINE static Vec512 all32(uint32_t value) { return {_mm512_set1_epi32(int(value))}; }
    ORVA_INLINE static Vec512 repeat(Vec128 lane) { return {_mm512_broadcast_i32x4(lane.v)}; }
    ORVA_INLINE static Vec512 alternating32(uint32_t even, uint32_t odd) {
        return repeat(Vec128::alternating32(even, odd));
    }

    ORVA_INLINE static Vec512 load(const uint8_t* p) { return {_mm512_loadu_si512(p)}; }
    ORVA_INLINE static Vec512 loadAligned(const uint8_t* p) { return load(p); }
    ORVA_INLINE static Vec512 loadHalves(const uint8_t* low, const uint8_t* high) {
        return {_mm512_inserti64x4(
            _mm512_castsi256_si512(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(low))),
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(high)), 1)};
    }
    ORVA_INLINE static Vec512 loadLow(const uint8_t* p) {
        return {_mm512_zextsi256_si512(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)))};
    }
    ORVA_INLINE static Vec512 loadBytesAsWords(const uint8_t* p) {
        return {_mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)))};
    }
    ORVA_INLINE static Vec512 loadBytesInTurnAsWords(const uint8_t* even, const uint8_t* odd) {
        const __m512i evens = _mm512_cvtepu8_epi32(Vec128::load(even).v);
        const __m512i odds = _mm512_cvtepu8_epi32(Vec128::load(odd).v);
        return {_mm512_or_si512(evens, _mm512_slli_epi32(odds, 16))};
    }
    ORVA_INLINE static Vec512 loadWordsAsDwords(const uint8_t* p) {
        return {_mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)))};
    }

    ORVA_INLINE void store(uint8_t* p) const { _mm512_storeu_si512(p, v); }
    ORVA_INLINE void stream(uint8_t* p) const {
        firstLane().stream(p);
        Vec128{_mm512_extracti32x4_epi32(v, 1)}.stream(p + 16);
        Vec128{_mm512_extracti32x4_epi32(v, 2)}.stream(p + 32);
        Vec128{_mm512_extracti32x4_epi32(v, 3)}.stream(p + 48);
    }
    ORVA_INLINE void streamWhole(uint8_t* p) const {
        _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v);
    }
    ORVA_INLINE void storeLow(uint8_t* p) const {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm512_castsi512_si256(v));
    }
    ORVA_INLINE void storeHalves(uint8_t* low, uint8_t* high) const {
        storeLow(low);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(high), _mm512_extracti64x4_epi64(v, 1));
    }

    ORVA_INLINE Vec128 firstLane() const { return {_mm512_castsi512_si128(v)}; }
};

#define V Vec512
#define MM(name) _mm512_##name
#include "simd/operations.inc"
#undef V
#undef MM

ORVA_INLINE Vec512 evenDwords(Vec512 a, Vec512 b) {
    return {_mm512_castps_si512(
        _mm512_shuffle_ps(_mm512_castsi512_ps(a.v), _mm512_castsi512_ps(b.v), 0x88))};
}

ORVA_INLINE Vec512 everyEvenDword(Vec512 a, Vec512 b) {
    return {_mm512_permutex2var_epi32(
        a.v, _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30), b.v)};
}
ORVA_INLINE Vec512 everyOddDword(Vec512 a, Vec512 b) {
    return {_mm512_permutex2var_epi32(
        a.v, _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31), b.v)};
}

ORVA_INLINE Vec512 nextDwords(Vec512 a) {
    return {_mm512_permutexvar_epi32(
        _mm512_setr_epi32(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 15), a.v)};
}
ORVA_INLINE Vec512 previousDwords(Vec512 earlier, Vec512 a) {
    return {_mm512_alignr_epi32(a.v, earlier.v, 15)};
}

ORVA_INLINE Vec512 alternateDwords(Vec512 even, Vec512 odd) {
    return {_mm512_mask_blend_epi32(0xAAAA, even.v, odd.v)};
}
ORVA_INLINE Vec512 mergeUpperHalves(Vec512 even, Vec512 odd) {
    const __m512i upperHalvesDown =
        _mm512_broadcast_i32x4(_mm_setr_epi32(0x0302, 0x0706, 0x0B0A, 0x0F0E));
    // In 32-bit builds GCC would put the mask together in memory, anew in every step of some loops.
    const __mmask64 lowerHalves = _mm512_kunpackd(0x33333333, 0x33333333);
    return {_mm512_mask_shuffle_epi8(odd.v, lowerHalves, even.v, upperHalvesDown)};
}

ORVA_INLINE Vec512 spreadHalves(Vec512 a) {
    return {_mm512_permutexvar_epi64(_mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7), a.v)};
}
ORVA_INLINE Vec512 groupHalves(Vec512 a) {
    return {_mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), a.v)};
}
ORVA_INLINE Vec512 spreadQuarters(Vec512 a) {
    // A 4 x 4 transposition is its own inverse.
    return {_mm512_permutexvar_epi32(
        _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), a.v)};
}
ORVA_INLINE Vec512 groupQuarters(Vec512 a) { return spreadQuarters(a); }

ORVA_INLINE Vec512 evenLanes(Vec512 a, Vec512 b) { return {_mm512_shuffle_i64x2(a.v, b.v, 0x88)}; }
ORVA_INLINE Vec512 oddLanes(Vec512 a, Vec512 b) { return {_mm512_shuffle_i64x2(a.v, b.v, 0xDD)}; }
ORVA_INLINE Vec512 zipLanesLow(Vec512 a, Vec512 b) {
    return {_mm512_permutex2var_epi64(a.v, _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11), b.v)};
}
ORVA_INLINE Vec512 zipLanesHigh(Vec512 a, Vec512 b) {
    return {_mm512_permutex2var_epi64(a.v, _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15), b.v)};
}

}  // namespace orva::ORVA_ISA
