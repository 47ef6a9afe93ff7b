// Kernels that move bytes: copies of every format, and the reorderings of packed 4:2:2 that stay
// within four bytes.
#pragma once

#include <type_traits>

#include "frame/planes.hpp"
#include "frame/row_walk.hpp"

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
    static constexpr uint32_t unitPixels = Format::unitPixels;
    static constexpr uint32_t blockPixels = Format::blockPixels;
    static constexpr uint32_t blockBytes = blockPixels / unitPixels * Format::unitBytes;

    SourcePointer src;
    DestinationPointer dst;

    ORVA_INLINE explicit MoveJob(const Descriptor& d)
        : src(mainSource(d)), dst(mainDestination(d)) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<Format::unitBytes>(dst); }
    ORVA_INLINE bool streamable() const { return isAligned16(dst); }

    template <class V, class Stores> ORVA_INLINE void blocks() {
        for (uint32_t i = 0; i < blockBytes * V::lanes; i += V::bytes)
            Stores::put(Order::apply(Loads::template get<V>(src + i)), dst + i);
        src += blockBytes * V::lanes;
        dst += blockBytes * V::lanes;
    }

    template <class Stores> ORVA_INLINE void unit() {
        if constexpr (Format::unitBytes == 4) {
            const Vec128 moved = Order::apply(Vec128::load4(src));
            // Only copies stream their row ends too.
            if constexpr (Stores::streaming && std::is_same_v<Order, Unchanged>)
                stream4(dst, moved.low32());
            else
                moved.store4(dst);
        } else {
            for (uint32_t i = 0; i < Format::unitBytes; ++i)
                dst[i] = src[i];
        }
        src += Format::unitBytes;
        dst += Format::unitBytes;
    }

    ORVA_INLINE void endRow() {
        src.endRow();
        dst.endRow();
    }
};

// A conversion that moves bytes, with the same kind of loads in all its forms.
template <class Format, class Order, class Loads> struct Move {
    template <bool fast, class Stores> static void run(const Descriptor& d) {
        walkRows<fast, Stores>(MoveJob<Format, Order, Loads>(d), d.srcHeight, d.dstWidth);
    }
};

}  // namespace orva::ORVA_ISA
