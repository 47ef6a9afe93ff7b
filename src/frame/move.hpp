// Kernels that move bytes: copies of every format, and the reorderings of packed 4:2:2 that stay
// within four bytes.
#pragma once

#include "frame/planes.hpp"
#include "frame/row_walk.hpp"
#include "simd/bytes.hpp"

namespace orva::ORVA_ISA {

// What a unit and a block are in the formats that are moved.
struct AlphaBytes {
    static constexpr uint32_t unitPixels = 1, unitBytes = 1, blockPixels = 32;
};
struct Bgr32Pixels {
    static constexpr uint32_t unitPixels = 1, unitBytes = 4, blockPixels = 16;
};
struct Bgr24Pixels {
    static constexpr uint32_t unitPixels = 1, unitBytes = 3, blockPixels = 16;
};
struct PackedPairs {
    static constexpr uint32_t unitPixels = 2, unitBytes = 4, blockPixels = 16;
};

// What is done to the bytes on their way.
struct Unchanged {
    template <class V> ORVA_INLINE static V apply(V bytes) { return bytes; }
};

struct BytesOfWordsSwapped {
    template <class V> ORVA_INLINE static V apply(V bytes) { return swapBytesOfWords(bytes); }
};
struct MiddleBytesSwapped {
    template <class V> ORVA_INLINE static V apply(V bytes) { return swapMiddleBytes(bytes); }
};

template <class Format, class Order, class Loads> struct MoveJob {
    static constexpr bool inlinesEnds = true;
    static constexpr uint32_t unitPixels = Format::unitPixels;
    static constexpr uint32_t blockPixels = Format::blockPixels;
    static constexpr uint32_t blockBytes = blockPixels / unitPixels * Format::unitBytes;
    static constexpr uint32_t streamedPixelBytes = Format::unitBytes / unitPixels;

    SourcePointer src;
    DestinationPointer dst;

    ORVA_INLINE explicit MoveJob(const Descriptor& d)
        : src(mainSource(d)), dst(mainDestination(d)) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<Format::unitBytes>(dst); }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        for (uint32_t i = 0; i < blockBytes * V::lanes; i += V::bytes)
            stores.put(Order::apply(Loads::template get<V>(src + i)), dst + i);
        src += blockBytes * V::lanes;
        dst += blockBytes * V::lanes;
    }

    template <uint32_t count> ORVA_INLINE void units() {
        constexpr uint32_t bytes = count * Format::unitBytes;
        if constexpr (bytes % 4 == 0) {
            Order::apply(Vec128::loadFirst<bytes>(src)).template storeFirst<bytes>(dst);
        } else {
            for (uint32_t i = 0; i < bytes; ++i)
                dst[i] = src[i];
        }
        src += bytes;
        dst += bytes;
    }

    ORVA_INLINE void endRow() {
        src.endRow();
        dst.endRow();
    }
};

// With the same kind of loads in all its forms.
template <class Format, class Order, class Loads> void move(const Descriptor& d, Form form) {
    walkImage(MoveJob<Format, Order, Loads>(d), d, form);
}

}  // namespace orva::ORVA_ISA
