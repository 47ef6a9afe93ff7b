// One 128-bit lane of 64-bit ARM: the vector of the NEON table. vec128.hpp and operations.inc say
// what the same names mean; what is plain here is so because ARM has no stores past the cache that
// differ, nor loads that insist on an alignment.
#pragma once

#include <arm_neon.h>
#include <cstring>

namespace orva::ORVA_ISA {

struct Vec128 {
    static constexpr unsigned lanes = 1;
    static constexpr unsigned bytes = 16;

    uint8x16_t v;

    ORVA_INLINE static Vec128 of(int16x8_t words) { return {vreinterpretq_u8_s16(words)}; }
    ORVA_INLINE static Vec128 of(uint16x8_t words) { return {vreinterpretq_u8_u16(words)}; }
    ORVA_INLINE static Vec128 of(int32x4_t dwords) { return {vreinterpretq_u8_s32(dwords)}; }
    ORVA_INLINE static Vec128 of(uint32x4_t dwords) { return {vreinterpretq_u8_u32(dwords)}; }
    ORVA_INLINE static Vec128 of(uint64x2_t qwords) { return {vreinterpretq_u8_u64(qwords)}; }
    ORVA_INLINE int16x8_t s16() const { return vreinterpretq_s16_u8(v); }
    ORVA_INLINE uint16x8_t u16() const { return vreinterpretq_u16_u8(v); }
    ORVA_INLINE int32x4_t s32() const { return vreinterpretq_s32_u8(v); }
    ORVA_INLINE uint32x4_t u32() const { return vreinterpretq_u32_u8(v); }
    ORVA_INLINE uint64x2_t u64() const { return vreinterpretq_u64_u8(v); }

    ORVA_INLINE static Vec128 zero() { return {vdupq_n_u8(0)}; }
    ORVA_INLINE static Vec128 all8(uint8_t value) { return {vdupq_n_u8(value)}; }
    ORVA_INLINE static Vec128 all16(int value) { return of(vdupq_n_s16(int16_t(value))); }
    ORVA_INLINE static Vec128 all32(uint32_t value) { return of(vdupq_n_u32(value)); }
    ORVA_INLINE static Vec128 repeat(Vec128 lane) { return lane; }
    template <class... Byte> ORVA_INLINE static Vec128 of8(Byte... bytes) {
        return {uint8x16_t{uint8_t(bytes)...}};
    }
    template <class... Word> ORVA_INLINE static Vec128 of16(Word... words) {
        return of(int16x8_t{int16_t(words)...});
    }
    template <class... Dword> ORVA_INLINE static Vec128 of32(Dword... dwords) {
        return of(uint32x4_t{uint32_t(dwords)...});
    }
    ORVA_INLINE static Vec128 alternating32(uint32_t even, uint32_t odd) {
        return of32(even, odd, even, odd);
    }

    ORVA_INLINE static Vec128 load(const uint8_t* p) { return {vld1q_u8(p)}; }
    ORVA_INLINE static Vec128 loadAligned(const uint8_t* p) { return load(p); }
    ORVA_INLINE static Vec128 loadHalves(const uint8_t* low, const uint8_t* high) {
        return {vcombine_u8(vld1_u8(low), vld1_u8(high))};
    }
    ORVA_INLINE static Vec128 loadLow(const uint8_t* p) { return load8(p); }
    ORVA_INLINE static Vec128 loadBytesAsWords(const uint8_t* p) {
        return of(vmovl_u8(vld1_u8(p)));
    }
    ORVA_INLINE static Vec128 loadBytesInTurnAsWords(const uint8_t* even, const uint8_t* odd) {
        return of(vmovl_u8(vget_low_u8(vzip1q_u8(load4(even).v, load4(odd).v))));
    }
    ORVA_INLINE static Vec128 loadWordsAsDwords(const uint8_t* p) {
        return of(vmovl_u16(vreinterpret_u16_u8(vld1_u8(p))));
    }

    ORVA_INLINE void store(uint8_t* p) const { vst1q_u8(p, v); }
    ORVA_INLINE void stream(uint8_t* p) const { store(p); }
    ORVA_INLINE void streamWhole(uint8_t* p) const { store(p); }
    ORVA_INLINE void storeLow(uint8_t* p) const { vst1_u8(p, vget_low_u8(v)); }
    ORVA_INLINE void storeHalves(uint8_t* low, uint8_t* high) const {
        storeLow(low);
        vst1_u8(high, vget_high_u8(v));
    }

    template <uint32_t count> ORVA_INLINE static Vec128 loadFirst(const uint8_t* p) {
        uint8_t lowest[bytes] = {};
        std::memcpy(lowest, p, count);
        return load(lowest);
    }
    template <uint32_t count>
    ORVA_INLINE static Vec128 loadFirstHalves(const uint8_t* low, const uint8_t* high) {
        return of(vzip1q_u64(loadFirst<count>(low).u64(), loadFirst<count>(high).u64()));
    }
    ORVA_INLINE static Vec128 load4(const uint8_t* p) { return loadFirst<4>(p); }
    ORVA_INLINE static Vec128 load8(const uint8_t* p) {
        return {vcombine_u8(vld1_u8(p), vdup_n_u8(0))};
    }
    template <uint32_t count> ORVA_INLINE static Vec128 gather(const uint8_t* p, size_t step) {
        uint8_t dwords[bytes] = {};
        for (uint32_t i = 0; i < count; ++i)
            std::memcpy(dwords + 4 * i, p + i * step, 4);
        return load(dwords);
    }
    ORVA_INLINE static Vec128 fromDwords(uint32_t first, uint32_t second) {
        return of32(first, second, 0, 0);
    }
    template <uint32_t count> ORVA_INLINE void storeFirst(uint8_t* p) const {
        uint8_t all[bytes];
        store(all);
        std::memcpy(p, all, count);
    }
    ORVA_INLINE void store4(uint8_t* p) const { storeFirst<4>(p); }
    ORVA_INLINE void store8(uint8_t* p) const { storeLow(p); }
    ORVA_INLINE uint32_t low32() const { return vgetq_lane_u32(u32(), 0); }

    ORVA_INLINE Vec128 firstLane() const { return *this; }
};

ORVA_INLINE Vec128 operator&(Vec128 a, Vec128 b) { return {vandq_u8(a.v, b.v)}; }
ORVA_INLINE Vec128 operator|(Vec128 a, Vec128 b) { return {vorrq_u8(a.v, b.v)}; }
ORVA_INLINE Vec128 exceptBits(Vec128 a, Vec128 excluded) { return {vbicq_u8(a.v, excluded.v)}; }

ORVA_INLINE Vec128 add16(Vec128 a, Vec128 b) { return Vec128::of(vaddq_s16(a.s16(), b.s16())); }
ORVA_INLINE Vec128 sub16(Vec128 a, Vec128 b) { return Vec128::of(vsubq_s16(a.s16(), b.s16())); }
ORVA_INLINE Vec128 add32(Vec128 a, Vec128 b) { return Vec128::of(vaddq_s32(a.s32(), b.s32())); }
ORVA_INLINE Vec128 min16(Vec128 a, Vec128 b) { return Vec128::of(vminq_s16(a.s16(), b.s16())); }
ORVA_INLINE Vec128 max16(Vec128 a, Vec128 b) { return Vec128::of(vmaxq_s16(a.s16(), b.s16())); }

template <int bits> ORVA_INLINE Vec128 shiftLeft16(Vec128 a) {
    return Vec128::of(vshlq_n_u16(a.u16(), bits));
}
template <int bits> ORVA_INLINE Vec128 shiftLeft32(Vec128 a) {
    return Vec128::of(vshlq_n_u32(a.u32(), bits));
}
template <int bits> ORVA_INLINE Vec128 shiftRight16(Vec128 a) {
    return Vec128::of(vshrq_n_u16(a.u16(), bits));
}
template <int bits> ORVA_INLINE Vec128 shiftRightSigned16(Vec128 a) {
    return Vec128::of(vshrq_n_s16(a.s16(), bits));
}
template <int bits> ORVA_INLINE Vec128 shiftRight32(Vec128 a) {
    return Vec128::of(vshrq_n_u32(a.u32(), bits));
}
template <int bits> ORVA_INLINE Vec128 shiftRightSigned32(Vec128 a) {
    return Vec128::of(vshrq_n_s32(a.s32(), bits));
}

ORVA_INLINE Vec128 multiply16(Vec128 a, Vec128 b) {
    return Vec128::of(vmulq_s16(a.s16(), b.s16()));
}
ORVA_INLINE Vec128 madd16(Vec128 a, Vec128 b) {
    return Vec128::of(vpaddq_s32(vmull_s16(vget_low_s16(a.s16()), vget_low_s16(b.s16())),
                                 vmull_high_s16(a.s16(), b.s16())));
}
ORVA_INLINE Vec128 maddAdd(Vec128 sum, Vec128 a, Vec128 b) { return add32(sum, madd16(a, b)); }

ORVA_INLINE Vec128 packWords(Vec128 a, Vec128 b) {
    return Vec128::of(vqmovn_high_s32(vqmovn_s32(a.s32()), b.s32()));
}
ORVA_INLINE Vec128 packBytes(Vec128 a, Vec128 b) {
    return {vqmovun_high_s16(vqmovun_s16(a.s16()), b.s16())};
}

ORVA_INLINE Vec128 unpackLow8(Vec128 a, Vec128 b) { return {vzip1q_u8(a.v, b.v)}; }
ORVA_INLINE Vec128 unpackHigh8(Vec128 a, Vec128 b) { return {vzip2q_u8(a.v, b.v)}; }
ORVA_INLINE Vec128 unpackLow16(Vec128 a, Vec128 b) {
    return Vec128::of(vzip1q_u16(a.u16(), b.u16()));
}
ORVA_INLINE Vec128 unpackHigh16(Vec128 a, Vec128 b) {
    return Vec128::of(vzip2q_u16(a.u16(), b.u16()));
}
ORVA_INLINE Vec128 unpackLow32(Vec128 a, Vec128 b) {
    return Vec128::of(vzip1q_u32(a.u32(), b.u32()));
}
ORVA_INLINE Vec128 unpackHigh32(Vec128 a, Vec128 b) {
    return Vec128::of(vzip2q_u32(a.u32(), b.u32()));
}
ORVA_INLINE Vec128 unpackHigh64(Vec128 a, Vec128 b) {
    return Vec128::of(vzip2q_u64(a.u64(), b.u64()));
}

ORVA_INLINE Vec128 shuffleBytes(Vec128 a, Vec128 order) { return {vqtbl1q_u8(a.v, order.v)}; }

template <int bytes> ORVA_INLINE Vec128 bytesDown(Vec128 a) {
    return {vextq_u8(a.v, Vec128::zero().v, bytes)};
}
template <int bytes> ORVA_INLINE Vec128 bytesUp(Vec128 a) {
    return {vextq_u8(Vec128::zero().v, a.v, 16 - bytes)};
}

ORVA_INLINE Vec128 evenDwords(Vec128 a, Vec128 b) {
    return Vec128::of(vuzp1q_u32(a.u32(), b.u32()));
}
ORVA_INLINE Vec128 oddDwords(Vec128 a, Vec128 b) {
    return Vec128::of(vuzp2q_u32(a.u32(), b.u32()));
}
ORVA_INLINE Vec128 nextDwords(Vec128 a) {
    return Vec128::of(vextq_u32(a.u32(), vdupq_laneq_u32(a.u32(), 3), 1));
}
ORVA_INLINE Vec128 alternateDwords(Vec128 even, Vec128 odd) {
    return {vbslq_u8(Vec128::alternating32(0xFFFFFFFF, 0).v, even.v, odd.v)};
}
ORVA_INLINE Vec128 mergeUpperHalves(Vec128 even, Vec128 odd) {
    return Vec128::of(vtrn2q_u16(even.u16(), odd.u16()));
}

ORVA_INLINE void fence() {}

}  // namespace orva::ORVA_ISA

#include "simd/one_lane.hpp"
