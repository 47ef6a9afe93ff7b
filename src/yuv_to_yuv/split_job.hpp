// Packed 4:2:2 taken apart into a luma plane and a plane of chroma pairs. Streaming means nothing
// here, as the header says.
#pragma once

#include "frame/packed_layouts.hpp"
#include "frame/planes.hpp"
#include "frame/row_walk.hpp"

namespace orva::ORVA_ISA {

template <class Layout> class SplitJob {
public:
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = 16;
    static constexpr uint32_t streamedPixelBytes = 0;

    ORVA_INLINE explicit SplitJob(const Descriptor& d)
        : src(mainSource(d)), luma(mainDestination(d)),
          chroma(luma.chromaPlane(d.dstPitch, d.dstHeight)) {}

    // As for 4 bytes per pair, although there are 2: it aligns nothing, since no store here needs
    // it.
    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(luma); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores) {
        const V first = V::load(src), second = V::load(src + V::bytes);
        samples<V>(Layout::template luma<0>(first), Layout::template luma<0>(second)).store(luma);
        samples<V>(Layout::template chroma<0>(first), Layout::template chroma<0>(second))
            .store(chroma);
        src += 2 * V::bytes;
        luma += V::bytes;
        chroma += V::bytes;
    }

    template <uint32_t count> ORVA_INLINE void units() {
        const Vec128 words = Vec128::loadFirst<4 * count>(src);
        const Vec128 lumaWords = Layout::template luma<0>(words);
        const Vec128 chromaWords = Layout::template chroma<0>(words);
        samples<Vec128>(lumaWords, lumaWords).template storeFirst<2 * count>(luma);
        samples<Vec128>(chromaWords, chromaWords).template storeFirst<2 * count>(chroma);
        src += 4 * count;
        luma += 2 * count;
        chroma += 2 * count;
    }

    ORVA_INLINE void endRow() {
        src.endRow();
        luma.endRow();
        chroma.endRow();
    }

private:
    template <class V> ORVA_INLINE static V samples(V firstWords, V secondWords) {
        return groupHalves(packBytes(firstWords, secondWords));
    }

    SourcePointer src;
    DestinationPointer luma, chroma;
};

template <class Layout> void split(const Descriptor& d, Form form) {
    walkImage(SplitJob<Layout>(d), d, form);
}

}  // namespace orva::ORVA_ISA
