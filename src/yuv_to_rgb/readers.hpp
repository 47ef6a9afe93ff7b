// Where the samples and the fourth bytes of YCbCr to RGB conversions come from.
#pragma once

#include "frame/packed_layouts.hpp"
#include "yuv_to_rgb/math.hpp"

namespace orva::ORVA_ISA {

// Packed 4:2:2: 4 bytes per pixel pair in one plane.
template <class Layout> class PackedReader {
public:
    ORVA_INLINE explicit PackedReader(const Descriptor& d)
        : src(static_cast<const uint8_t*>(d.srcData)), gap(d.srcRowGap) {
        __builtin_prefetch(src);
    }

    template <class V> ORVA_INLINE Yuv<V> take() {
        const V words = spreadHalves(V::load(src));
        src += V::bytes;
        return split(words);
    }

    ORVA_INLINE Yuv<Vec128> takePair() {
        const Vec128 words = Vec128::load4(src);
        src += 4;
        return split(words);
    }

    ORVA_INLINE void endRow() { src += gap; }

private:
    template <class V> ORVA_INLINE static Yuv<V> split(V words) {
        return {Layout::template luma<2>(words), Layout::template chroma<3>(words)};
    }

    const uint8_t* src;
    ptrdiff_t gap;
};

// No fourth byte at all, for BGR24I.
class NoFourth {
public:
    ORVA_INLINE explicit NoFourth(const Descriptor&) {}
    template <class V> ORVA_INLINE V take() { return V::zero(); }
    ORVA_INLINE Vec128 takePair() { return Vec128::zero(); }
    ORVA_INLINE void endRow() {}
};

// The descriptor's constant. Single pairs have always had it one byte too high in the odd pixel's
// word and not at all in the even one's, so that saturation makes it 0 or 255.
class ConstantFourth {
public:
    ORVA_INLINE explicit ConstantFourth(const Descriptor& d)
        : block(Wide::all16(int16_t(d.alphaValue))),
          pair(Vec128::all32(uint32_t(d.alphaValue) << 24)) {}

    template <class V> ORVA_INLINE V take() { return constant<V>(block); }
    ORVA_INLINE Vec128 takePair() { return pair; }
    ORVA_INLINE void endRow() {}

private:
    Wide block;
    Vec128 pair;
};

// The source's alpha plane. Blocks move the running pointer, single pairs do not: they read at
// their place in the row, behind what the row's blocks and earlier pairs took.
class PlaneFourth {
public:
    ORVA_INLINE explicit PlaneFourth(const Descriptor& d)
        : src(static_cast<const uint8_t*>(d.srcPlane2Data)), gap(d.srcPlane2RowGap) {
        __builtin_prefetch(src);
    }

    template <class V> ORVA_INLINE V take() {
        const V bytes = spreadQuarters(V::loadLow(src));
        src += 8 * V::lanes;
        return unpackLow8(bytes, V::zero());
    }

    ORVA_INLINE Vec128 takePair() {
        const uint8_t* alpha = src + pixelsInPairs;
        pixelsInPairs += 2;
        return Vec128::all32(alpha[0] | uint32_t(alpha[1]) << 16);
    }

    ORVA_INLINE void endRow() {
        src += gap;
        pixelsInPairs = 0;
    }

private:
    const uint8_t* src;
    ptrdiff_t gap;
    size_t pixelsInPairs = 0;
};

}  // namespace orva::ORVA_ISA
