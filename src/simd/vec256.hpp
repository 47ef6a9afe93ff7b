// Two 128-bit lanes: the wide vector of the AVX2 and AVX-VNNI tables.
#pragma once

namespace orva::ORVA_ISA {

struct Vec256 {
    static constexpr unsigned lanes = 2;
    static constexpr unsigned bytes = 32;

    __m256i v;

    ORVA_INLINE static Vec256 zero() { return {_mm256_setzero_si256()}; }
    ORVA_INLINE static Vec256 all8(uint8_t value) { return {_mm256_set1_epi8(char(value))}; }
    ORVA_INLINE static Vec256 all16(int value) { return {_mm256_set1_epi16(short(value))}; }
    ORVA_INLINE static Vec256 all32(uint32_t value) { return {_mm256_set1_epi32(int(value))}; }
    ORVA_INLINE static Vec256 repeat(Vec128 lane) { return {_mm256_broadcastsi128_si256(lane.v)}; }
    ORVA_INLINE static Vec256 alternating32(uint32_t even, uint32_t odd) {
        return repeat(Vec128::alternating32(even, odd));
    }

    ORVA_INLINE static Vec256 load(const uint8_t* p) {
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))};
    }
    // Rows are only promised to be 16-byte aligned, so a wide load cannot insist on more.
    ORVA_INLINE static Vec256 loadAligned(const uint8_t* p) { return load(p); }
    ORVA_INLINE static Vec256 loadHalves(const uint8_t* low, const uint8_t* high) {
        return {_mm256_inserti128_si256(_mm256_castsi128_si256(Vec128::load(low).v),
                                        Vec128::load(high).v, 1)};
    }
    ORVA_INLINE static Vec256 loadLow(const uint8_t* p) {
        return {_mm256_zextsi128_si256(Vec128::load(p).v)};
    }
    ORVA_INLINE static Vec256 loadBytesAsWords(const uint8_t* p) {
        return {_mm256_cvtepu8_epi16(Vec128::load(p).v)};
    }
    ORVA_INLINE static Vec256 loadBytesInTurnAsWords(const uint8_t* even, const uint8_t* odd) {
        return {
            _mm256_cvtepu8_epi16(_mm_unpacklo_epi8(Vec128::load8(even).v, Vec128::load8(odd).v))};
    }
    ORVA_INLINE static Vec256 loadWordsAsDwords(const uint8_t* p) {
        return {_mm256_cvtepu16_epi32(Vec128::load(p).v)};
    }

    ORVA_INLINE void store(uint8_t* p) const {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
    }
    ORVA_INLINE void stream(uint8_t* p) const {
        firstLane().stream(p);
        Vec128{_mm256_extracti128_si256(v, 1)}.stream(p + 16);
    }
    ORVA_INLINE void streamWhole(uint8_t* p) const {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(p), v);
    }
    ORVA_INLINE void storeLow(uint8_t* p) const { firstLane().store(p); }
    ORVA_INLINE void storeHalves(uint8_t* low, uint8_t* high) const {
        firstLane().store(low);
        Vec128{_mm256_extracti128_si256(v, 1)}.store(high);
    }

    ORVA_INLINE Vec128 firstLane() const { return {_mm256_castsi256_si128(v)}; }
};

#define V Vec256
#define MM(name) _mm256_##name
#include "simd/operations.inc"
#undef V
#undef MM

ORVA_INLINE Vec256 evenDwords(Vec256 a, Vec256 b) {
    return {_mm256_castps_si256(
        _mm256_shuffle_ps(_mm256_castsi256_ps(a.v), _mm256_castsi256_ps(b.v), 0x88))};
}
ORVA_INLINE Vec256 oddDwords(Vec256 a, Vec256 b) {
    return {_mm256_castps_si256(
        _mm256_shuffle_ps(_mm256_castsi256_ps(a.v), _mm256_castsi256_ps(b.v), 0xDD))};
}

ORVA_INLINE Vec256 nextDwords(Vec256 a) {
    return {_mm256_permutevar8x32_epi32(a.v, _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 7))};
}
ORVA_INLINE Vec256 previousDwords(Vec256 earlier, Vec256 a) {
    const __m256i across = _mm256_permute2x128_si256(earlier.v, a.v, 0x21);
    return {_mm256_alignr_epi8(a.v, across, 12)};
}

ORVA_INLINE Vec256 alternateDwords(Vec256 even, Vec256 odd) {
    return {_mm256_blend_epi32(even.v, odd.v, 0xAA)};
}
ORVA_INLINE Vec256 mergeUpperHalves(Vec256 even, Vec256 odd) {
    return {_mm256_blend_epi16(_mm256_srli_epi32(even.v, 16), odd.v, 0xAA)};
}

// Between memory order and lanes. Spreading the halves gives lane i the 8-byte pieces i and
// lanes + i; spreading the quarters gives it the 4-byte pieces i, lanes + i, 2 * lanes + i and
// 3 * lanes + i. Grouping is the way back.
ORVA_INLINE Vec256 spreadHalves(Vec256 a) { return {_mm256_permute4x64_epi64(a.v, 0xD8)}; }
ORVA_INLINE Vec256 groupHalves(Vec256 a) { return spreadHalves(a); }
ORVA_INLINE Vec256 spreadQuarters(Vec256 a) {
    return {_mm256_permutevar8x32_epi32(a.v, _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7))};
}
ORVA_INLINE Vec256 groupQuarters(Vec256 a) {
    return {_mm256_permutevar8x32_epi32(a.v, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7))};
}

ORVA_INLINE Vec256 everyEvenDword(Vec256 a, Vec256 b) { return groupHalves(evenDwords(a, b)); }
ORVA_INLINE Vec256 everyOddDword(Vec256 a, Vec256 b) { return groupHalves(oddDwords(a, b)); }

// Of the lanes of a and then b in memory order, those with even or odd numbers; and the way back.
ORVA_INLINE Vec256 evenLanes(Vec256 a, Vec256 b) {
    return {_mm256_permute2x128_si256(a.v, b.v, 0x20)};
}
ORVA_INLINE Vec256 oddLanes(Vec256 a, Vec256 b) {
    return {_mm256_permute2x128_si256(a.v, b.v, 0x31)};
}
ORVA_INLINE Vec256 zipLanesLow(Vec256 a, Vec256 b) { return evenLanes(a, b); }
ORVA_INLINE Vec256 zipLanesHigh(Vec256 a, Vec256 b) { return oddLanes(a, b); }

}  // namespace orva::ORVA_ISA
