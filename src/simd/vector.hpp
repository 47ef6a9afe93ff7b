// The vectors that kernels are written over.
//
// The arithmetic of every conversion is defined on 128-bit vectors. A wider vector is `lanes` of
// them side by side, and arithmetic works within each 128-bit lane, so a kernel written once over a
// vector type gives the same bytes at every width. What differs between widths is how
// memory meets lanes: a wide load is one run of bytes, and the spread/group functions move halves
// or quarters of lanes so that unpacking and packing, which work lane by lane, keep that run in
// order.
//
// ORVA_ISA names the instruction set that this translation unit is compiled for, and the namespace
// that holds everything compiled for it: no function of one instruction set can be linked into
// another's path. No kernel outside this folder names an intrinsic.
#pragma once

#ifndef ORVA_ISA
#error "compile kernels with ORVA_ISA naming the instruction set"
#endif

#include <cstddef>
#include <cstdint>

#define ORVA_INLINE [[gnu::always_inline]] inline

#if defined(__ARM_NEON)
#include "simd/neon.hpp"
#else
#include "simd/vec128.hpp"
#endif

#if defined(__AVX512BW__)
#include "simd/vec512.hpp"
#elif defined(__AVX2__)
#include "simd/vec256.hpp"
#endif

// Whether there is shuffleBytes.
#if defined(__SSSE3__) || defined(__ARM_NEON)
#define ORVA_SHUFFLES_BYTES 1
#else
#define ORVA_SHUFFLES_BYTES 0
#endif

namespace orva::ORVA_ISA {

#if defined(__AVX512BW__)
using Wide = Vec512;
#elif defined(__AVX2__)
using Wide = Vec256;
#else
using Wide = Vec128;
#endif

// A vector whose lanes are alike, which never changes once it is made: assigning another one of the
// same call's costs nothing.
class Constant {
public:
    ORVA_INLINE Constant(Wide wide) : wide(wide) {}
    ORVA_INLINE Constant(const Constant&) = default;
    ORVA_INLINE Constant& operator=(const Constant&) { return *this; }

    template <class V> ORVA_INLINE V as() const {
        if constexpr (V::lanes == Wide::lanes)
            return wide;
        else
            return wide.firstLane();
    }

private:
    Wide wide;
};

template <class V> ORVA_INLINE V constant(const Constant& c) { return c.template as<V>(); }

// Two words as a dword, and as all dwords of a vector.
ORVA_INLINE uint32_t wordPair(int16_t even, int16_t odd) {
    return uint16_t(even) | uint32_t(uint16_t(odd)) << 16;
}
ORVA_INLINE Wide wordPairs(int16_t even, int16_t odd) { return Wide::all32(wordPair(even, odd)); }

}  // namespace orva::ORVA_ISA
