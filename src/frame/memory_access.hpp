// How kernels read and write whole vectors.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// Loads that insist on the 16-byte alignment that some kernels require of their source, and loads
// that take any address.
struct AlignedLoads {
    template <class V> ORVA_INLINE static V get(const uint8_t* p) { return V::loadAligned(p); }
};

struct UnalignedLoads {
    template <class V> ORVA_INLINE static V get(const uint8_t* p) { return V::load(p); }
};

struct OrdinaryStores {
    template <class V> ORVA_INLINE void put(V value, uint8_t* p) const { value.store(p); }
};

// Past the cache, 16 bytes at a time whatever the width of the vectors, because a destination row
// is only promised to be 16-byte aligned.
struct StreamingStores {
    template <class V> ORVA_INLINE void put(V value, uint8_t* p) const { value.stream(p); }
};

// Past the cache from one address to another, ordinary before and behind.
struct StreamingBetween {
    const uint8_t *first, *last;
    ORVA_INLINE static StreamingBetween nothing() { return {nullptr, nullptr}; }
    ORVA_INLINE void put(Vec128 value, uint8_t* p) const {
        if (p >= first && p < last)
            value.stream(p);
        else
            value.store(p);
    }
};

// Bytes that memory and caches exchange at once.
inline constexpr unsigned cacheLine = 64;

template <unsigned multiple> ORVA_INLINE bool isAligned(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % multiple == 0;
}

}  // namespace orva::ORVA_ISA
