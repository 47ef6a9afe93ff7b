// Where the samples of RGB to YCbCr conversions go.
#pragma once

#include "alpha/planes.hpp"
#include "frame/packed_layouts.hpp"
#include "rgb_to_yuv/math.hpp"

namespace orva::ORVA_ISA {

// Packed 4:2:2: 4 bytes per pixel pair in one plane.
template <class Layout> class PackedWriter {
public:
    static constexpr uint32_t streamedPixelBytes = 2;
    static constexpr bool isSemiPlanar = false;

    ORVA_INLINE explicit PackedWriter(const Descriptor& d) : dst(mainDestination(d)) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(dst); }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const YuvWords<V>& samples) {
        stores.put(groupHalves(Layout::join(samples.luma, samples.chroma)), dst);
        dst += V::bytes;
    }

    // Up to 4 pairs of pixels.
    template <uint32_t count> ORVA_INLINE void putPairs(const YuvWords<Vec128>& samples) {
        Layout::join(samples.luma, samples.chroma).template storeFirst<4 * count>(dst);
        dst += 4 * count;
    }

    ORVA_INLINE void endRow() { dst.endRow(); }

private:
    DestinationPointer dst;
};

// A luma plane and a plane of chroma pairs, which moves by the same gap. Streaming means nothing
// here: a block is 8 bytes to each plane, which need no alignment.
class SemiPlanarWriter {
public:
    static constexpr uint32_t streamedPixelBytes = 0;
    static constexpr bool isSemiPlanar = true;

    ORVA_INLINE explicit SemiPlanarWriter(const Descriptor& d)
        : luma(mainDestination(d)), chroma(luma.chromaPlane(d.dstPitch, d.dstHeight)) {}

    // As for 4 bytes per pair, although there are 2: it decides how many pairs go singly, and that
    // is documented.
    ORVA_INLINE uint32_t head() const { return unitsToBoundary<4>(luma); }

    template <class Stores, class V> ORVA_INLINE void put(Stores, const YuvWords<V>& samples) {
        groupQuarters(packBytes(samples.luma, samples.chroma)).storeHalves(luma, chroma);
        luma += V::bytes / 2;
        chroma += V::bytes / 2;
    }

    template <uint32_t count> ORVA_INLINE void putPairs(const YuvWords<Vec128>& samples) {
        packBytes(samples.luma, samples.luma).storeFirst<2 * count>(luma);
        packBytes(samples.chroma, samples.chroma).storeFirst<2 * count>(chroma);
        luma += 2 * count;
        chroma += 2 * count;
    }

    ORVA_INLINE void endRow() {
        luma.endRow();
        chroma.endRow();
    }

private:
    DestinationPointer luma, chroma;
};

// What becomes of the pixels' fourth bytes: nothing, or the destination's alpha plane.
class FourthDropped {
public:
    ORVA_INLINE explicit FourthDropped(const Descriptor&) {}
    template <class V> ORVA_INLINE void put(const Pixels8<V>&) {}
    template <uint32_t> ORVA_INLINE void putPairs(const Pixels8<Vec128>&) {}
    ORVA_INLINE void endRow() {}
};

class FourthToPlane {
public:
    ORVA_INLINE explicit FourthToPlane(const Descriptor& d) : dst(alphaDestination(d)) {}

    template <class V> ORVA_INLINE void put(const Pixels8<V>& pixels) {
        fourthBytes(pixels).storeLow(dst);
        dst += V::bytes / 2;
    }

    template <uint32_t count> ORVA_INLINE void putPairs(const Pixels8<Vec128>& pixels) {
        fourthBytes(pixels).storeFirst<2 * count>(dst);
        dst += 2 * count;
    }

    ORVA_INLINE void endRow() { dst.endRow(); }

private:
    DestinationPointer dst;
};

}  // namespace orva::ORVA_ISA
