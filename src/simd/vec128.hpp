// One 128-bit lane: the vector of the SSE tables, and of single blocks and row ends in every table
// of x86.
#pragma once

#include <immintrin.h>

namespace orva::ORVA_ISA {

struct Vec128 {
    static constexpr unsigned lanes = 1;
    static constexpr unsigned bytes = 16;

    __m128i v;

    ORVA_INLINE static Vec128 zero() { return {_mm_setzero_si128()}; }
    ORVA_INLINE static Vec128 all8(uint8_t value) { return {_mm_set1_epi8(char(value))}; }
    ORVA_INLINE static Vec128 all16(int value) { return {_mm_set1_epi16(short(value))}; }
    ORVA_INLINE static Vec128 all32(uint32_t value) { return {_mm_set1_epi32(int(value))}; }
    ORVA_INLINE static Vec128 repeat(Vec128 lane) { return lane; }
    template <class... Byte> ORVA_INLINE static Vec128 of8(Byte... bytes) {
        return {_mm_setr_epi8(char(bytes)...)};
    }
    template <class... Word> ORVA_INLINE static Vec128 of16(Word... words) {
        return {_mm_setr_epi16(short(words)...)};
    }
    template <class... Dword> ORVA_INLINE static Vec128 of32(Dword... dwords) {
        return {_mm_setr_epi32(int(dwords)...)};
    }
    ORVA_INLINE static Vec128 alternating32(uint32_t even, uint32_t odd) {
        return of32(even, odd, even, odd);
    }

    ORVA_INLINE static Vec128 load(const uint8_t* p) {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))};
    }
    // p must be 16-byte aligned.
    ORVA_INLINE static Vec128 loadAligned(const uint8_t* p) {
        return {_mm_load_si128(reinterpret_cast<const __m128i*>(p))};
    }
    // The low half from one place, the high half from another.
    ORVA_INLINE static Vec128 loadHalves(const uint8_t* low, const uint8_t* high) {
        return {_mm_unpacklo_epi64(load8(low).v, load8(high).v)};
    }
    ORVA_INLINE static Vec128 loadLow(const uint8_t* p) { return load8(p); }

    // As many bytes or words as make a vector of words or dwords, zero-extended.
    ORVA_INLINE static Vec128 loadBytesAsWords(const uint8_t* p) {
        return {_mm_unpacklo_epi8(load8(p).v, zero().v)};
    }
    // Half as many from each of two places, in turn.
    ORVA_INLINE static Vec128 loadBytesInTurnAsWords(const uint8_t* even, const uint8_t* odd) {
        return {_mm_unpacklo_epi8(_mm_unpacklo_epi8(load4(even).v, load4(odd).v), zero().v)};
    }
    ORVA_INLINE static Vec128 loadWordsAsDwords(const uint8_t* p) {
        return {_mm_unpacklo_epi16(load8(p).v, zero().v)};
    }

    ORVA_INLINE void store(uint8_t* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
    // Past the cache; p must be 16-byte aligned.
    ORVA_INLINE void stream(uint8_t* p) const {
        _mm_stream_si128(reinterpret_cast<__m128i*>(p), v);
    }
    // The same, but wider vectors store at once what must be aligned as they are wide.
    ORVA_INLINE void streamWhole(uint8_t* p) const { stream(p); }
    ORVA_INLINE void storeLow(uint8_t* p) const { store8(p); }
    ORVA_INLINE void storeHalves(uint8_t* low, uint8_t* high) const {
        store8(low);
        _mm_storeh_pi(reinterpret_cast<__m64*>(high), _mm_castsi128_ps(v));
    }

    // Row ends: the lowest 2, 4, 8, 12 or all 16 bytes only, the rest zero.
    template <uint32_t count> ORVA_INLINE static Vec128 loadFirst(const uint8_t* p) {
        static_assert(count == 2 || count == 4 || count == 8 || count == 12 || count == 16);
        if constexpr (count == 2)
            return {_mm_cvtsi32_si128(p[0] | p[1] << 8)};
        else if constexpr (count == 12)
            return {_mm_unpacklo_epi64(load8(p).v, load4(p + 8).v)};
        else
            return count == 4 ? load4(p) : count == 8 ? load8(p) : load(p);
    }
    // The same number of bytes in the low half from one place and in the high half from another.
    template <uint32_t count>
    ORVA_INLINE static Vec128 loadFirstHalves(const uint8_t* low, const uint8_t* high) {
        return {_mm_unpacklo_epi64(loadFirst<count>(low).v, loadFirst<count>(high).v)};
    }
    ORVA_INLINE static Vec128 load4(const uint8_t* p) { return {_mm_loadu_si32(p)}; }
    ORVA_INLINE static Vec128 load8(const uint8_t* p) {
        return {_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))};
    }
    // 2 or 4 dwords that lie apart.
    template <uint32_t count> ORVA_INLINE static Vec128 gather(const uint8_t* p, size_t step) {
        const Vec128 two{_mm_unpacklo_epi32(load4(p).v, load4(p + step).v)};
        if constexpr (count == 2)
            return two;
        else
            return {_mm_unpacklo_epi64(two.v, gather<2>(p + 2 * step, step).v)};
    }
    ORVA_INLINE static Vec128 fromDwords(uint32_t first, uint32_t second) {
        return {_mm_unpacklo_epi32(_mm_cvtsi32_si128(int(first)), _mm_cvtsi32_si128(int(second)))};
    }
    // The lowest 2, 4, 6, 8, 12 or all 16 bytes.
    template <uint32_t count> ORVA_INLINE void storeFirst(uint8_t* p) const {
        static_assert(count % 2 == 0 && (count <= 8 || count == 12 || count == 16));
        if constexpr (count == 2) {
            p[0] = uint8_t(low32());
            p[1] = uint8_t(low32() >> 8);
        } else if constexpr (count == 6) {
            store4(p);
            Vec128{_mm_srli_si128(v, 4)}.storeFirst<2>(p + 4);
        } else if constexpr (count == 12) {
            store8(p);
            Vec128{_mm_srli_si128(v, 8)}.store4(p + 8);
        } else {
            count == 4 ? store4(p) : count == 8 ? store8(p) : store(p);
        }
    }
    ORVA_INLINE void store4(uint8_t* p) const { _mm_storeu_si32(p, v); }
    ORVA_INLINE void store8(uint8_t* p) const {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v);
    }
    ORVA_INLINE uint32_t low32() const { return uint32_t(_mm_cvtsi128_si32(v)); }

    ORVA_INLINE Vec128 firstLane() const { return *this; }
};

#define V Vec128
#define MM(name) _mm_##name
#include "simd/operations.inc"
#undef V
#undef MM

// All bytes moved by some places, down to lower addresses or up; zero comes after them.
template <int bytes> ORVA_INLINE Vec128 bytesDown(Vec128 a) { return {_mm_srli_si128(a.v, bytes)}; }
template <int bytes> ORVA_INLINE Vec128 bytesUp(Vec128 a) { return {_mm_slli_si128(a.v, bytes)}; }

// Dwords 0 and 2, or 1 and 3, of a, then of b, lane by lane.
ORVA_INLINE Vec128 evenDwords(Vec128 a, Vec128 b) {
    return {_mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(a.v), _mm_castsi128_ps(b.v), 0x88))};
}

ORVA_INLINE Vec128 oddDwords(Vec128 a, Vec128 b) {
    return {_mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(a.v), _mm_castsi128_ps(b.v), 0xDD))};
}

// The dword behind each of a's, with the last repeated.
ORVA_INLINE Vec128 nextDwords(Vec128 a) { return {_mm_shuffle_epi32(a.v, 0xF9)}; }

// The even dwords of one, the odd ones of the other.
ORVA_INLINE Vec128 alternateDwords(Vec128 even, Vec128 odd) {
#if defined(__SSE4_1__)
    return {_mm_blend_epi16(even.v, odd.v, 0xCC)};
#else
    const Vec128 first = Vec128::alternating32(0xFFFFFFFF, 0);
    return (even & first) | exceptBits(odd, first);
#endif
}

// The 16-bit upper halves of the dwords of even and odd, interleaved.
ORVA_INLINE Vec128 mergeUpperHalves(Vec128 even, Vec128 odd) {
#if defined(__SSE4_1__)
    return {_mm_blend_epi16(_mm_srli_epi32(even.v, 16), odd.v, 0xAA)};
#else
    return shiftRight32<16>(even) | (odd & Vec128::all32(0xFFFF0000));
#endif
}

// Orders streamed stores before every later store.
ORVA_INLINE void fence() { _mm_sfence(); }

}  // namespace orva::ORVA_ISA

#include "simd/one_lane.hpp"
