// Packed 4:2:2 from one matrix to the other, in blocks of 16 pixels.
#pragma once

#include "frame/packed_layouts.hpp"
#include "frame/planes.hpp"
#include "frame/row_walk.hpp"
#include "yuv_to_yuv/math.hpp"

namespace orva::ORVA_ISA {

template <class SourceLayout, class DestinationLayout, bool clamped> class MatrixJob {
public:
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = 16;
    static constexpr uint32_t streamedPixelBytes = 2;

    ORVA_INLINE explicit MatrixJob(const Descriptor& d)
        : src(mainSource(d)), dst(mainDestination(d)), math(matrixSetup(d)) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(dst); }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        // The halves of a block are neighbouring lanes in memory and have to meet in one lane.
        const V low = V::load(src), high = V::load(src + V::bytes);
        const Bytes<V> out =
            join(math(WholeBlock<V>{split(evenLanes(low, high)), split(oddLanes(low, high))}));
        stores.put(zipLanesLow(out.first, out.second), dst);
        stores.put(zipLanesHigh(out.first, out.second), dst + V::bytes);
        src += 2 * V::bytes;
        dst += 2 * V::bytes;
    }

    // A single pair is the first half of a block whose halves are the same, and so are several,
    // next to each other.
    template <uint32_t count> ORVA_INLINE void units() {
        const HalfBlock<Vec128> pairs = split(Vec128::loadFirst<4 * count>(src));
        join(math(WholeBlock<Vec128>{pairs, pairs})).first.template storeFirst<4 * count>(dst);
        src += 4 * count;
        dst += 4 * count;
    }

    ORVA_INLINE void endRow() {
        src.endRow();
        dst.endRow();
    }

private:
    template <class V> struct Bytes { V first, second; };

    template <class V> ORVA_INLINE static HalfBlock<V> split(V words) {
        return {SourceLayout::template luma<0>(words), SourceLayout::template chroma<0>(words)};
    }

    template <class V> ORVA_INLINE static Bytes<V> join(const WholeBlock<V>& block) {
        const V luma = packBytes(block.first.luma, block.second.luma);
        const V chroma = packBytes(block.first.chroma, block.second.chroma);
        return {DestinationLayout::interleaveLow(luma, chroma),
                DestinationLayout::interleaveHigh(luma, chroma)};
    }

    SourcePointer src;
    DestinationPointer dst;
    MatrixConversion<clamped> math;
};

template <class SourceLayout, class DestinationLayout> struct Matrix {
    template <bool clamped> static void run(const Descriptor& d, Form form) {
        walkImage(MatrixJob<SourceLayout, DestinationLayout, clamped>(d), d, form);
    }
};

}  // namespace orva::ORVA_ISA
