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
    static constexpr bool streaming = false;
    template <class V> ORVA_INLINE static void put(V value, uint8_t* p) { value.store(p); }
};

// Past the cache, 16 bytes at a time whatever the width of the vectors, because a destination row
// is only promised to be 16-byte aligned.
struct StreamingStores {
    static constexpr bool streaming = true;
    template <class V> ORVA_INLINE static void put(V value, uint8_t* p) { value.stream(p); }
};

ORVA_INLINE bool isAligned16(const void* p) { return reinterpret_cast<uintptr_t>(p) % 16 == 0; }

}  // namespace orva::ORVA_ISA
