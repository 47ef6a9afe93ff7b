// Where the samples of the enlarging mode go: every pixel twice, on two lines.
//
// A source pair (Y0, Y1, Cb, Cr) becomes the pairs (Y0, Y0, Cb, Cr) and (Y1, Y1, Cb, Cr), and the
// line that follows is the same. The second line lies dstPitch below the first; behind a row the
// pointers move by twice the row gap.
#pragma once

#include "frame/packed_layouts.hpp"
#include "frame/planes.hpp"
#include "frame/row_walk.hpp"
#include "rgb_to_yuv/math.hpp"

namespace orva::ORVA_ISA {

// The samples of each half of the pixels, twice.
template <class V> struct EnlargedWords { YuvWords<V> first, second; };

template <class V> ORVA_INLINE EnlargedWords<V> enlarged(const YuvWords<V>& samples) {
    return {
        {unpackLow16(samples.luma, samples.luma), unpackLow32(samples.chroma, samples.chroma)},
        {unpackHigh16(samples.luma, samples.luma), unpackHigh32(samples.chroma, samples.chroma)}};
}

template <class Layout> class EnlargingPackedWriter {
public:
    static constexpr uint32_t streamedPixelBytes = 4;
    static constexpr bool isSemiPlanar = false;

    ORVA_INLINE explicit EnlargingPackedWriter(const Descriptor& d)
        : dst(mainDestination(d)), pitch(d.dstPitch) {}

    // As for 4 bytes per pair, although there are 8.
    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(dst); }
    // The walk knows the first of the two lines only: cache lines have to begin alike on both, and
    // with the row.
    ORVA_INLINE uint8_t* streamed() const {
        const bool alike = isAligned<cacheLine>(dst) && pitch % ptrdiff_t(cacheLine) == 0;
        return alike ? static_cast<uint8_t*>(dst) : nullptr;
    }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const YuvWords<V>& samples) {
        const EnlargedWords<V> words = enlarged(samples);
        const V first = Layout::join(words.first.luma, words.first.chroma);
        const V second = Layout::join(words.second.luma, words.second.chroma);
        uint8_t* const lines[] = {dst, dst + pitch};
        for (uint8_t* line : lines) {
            stores.put(first, line);
            stores.put(second, line + V::bytes);
        }
        dst += 2 * V::bytes;
    }

    // Up to 4 pairs of pixels.
    template <uint32_t count> ORVA_INLINE void putPairs(const YuvWords<Vec128>& samples) {
        if constexpr (count == 4) {
            put(OrdinaryStores(), samples);
        } else {
            const YuvWords<Vec128> words = enlarged(samples).first;
            uint8_t* const lines[] = {dst, dst + pitch};
            for (uint8_t* line : lines)
                Layout::join(words.luma, words.chroma).template storeFirst<8 * count>(line);
            dst += 8 * count;
        }
    }

    ORVA_INLINE void endRow() {
        dst.endRow();
        dst.endRow();
    }

private:
    DestinationPointer dst;
    ptrdiff_t pitch;
};

class EnlargingSemiPlanarWriter {
public:
    static constexpr uint32_t streamedPixelBytes = 0;
    static constexpr bool isSemiPlanar = true;

    ORVA_INLINE explicit EnlargingSemiPlanarWriter(const Descriptor& d)
        : luma(mainDestination(d)), chroma(luma.chromaPlane(d.dstPitch, d.dstHeight)),
          pitch(d.dstPitch) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(luma); }

    template <class Stores, class V> ORVA_INLINE void put(Stores, const YuvWords<V>& samples) {
        const EnlargedWords<V> words = enlarged(samples);
        const V lumaBytes = groupHalves(packBytes(words.first.luma, words.second.luma));
        const V chromaBytes = groupHalves(packBytes(words.first.chroma, words.second.chroma));
        const ptrdiff_t lines[] = {0, pitch};
        for (const ptrdiff_t line : lines) {
            lumaBytes.store(luma + line);
            chromaBytes.store(chroma + line);
        }
        luma += V::bytes;
        chroma += V::bytes;
    }

    template <uint32_t count> ORVA_INLINE void putPairs(const YuvWords<Vec128>& samples) {
        const EnlargedWords<Vec128> words = enlarged(samples);
        const ptrdiff_t lines[] = {0, pitch};
        for (const ptrdiff_t line : lines) {
            packBytes(words.first.luma, words.second.luma).storeFirst<4 * count>(luma + line);
            packBytes(words.first.chroma, words.second.chroma).storeFirst<4 * count>(chroma + line);
        }
        luma += 4 * count;
        chroma += 4 * count;
    }

    ORVA_INLINE void endRow() {
        luma.endRow();
        luma.endRow();
        chroma.endRow();
        chroma.endRow();
    }

private:
    DestinationPointer luma, chroma;
    ptrdiff_t pitch;
};

}  // namespace orva::ORVA_ISA
