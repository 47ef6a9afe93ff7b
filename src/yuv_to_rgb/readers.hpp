// Where the samples and the fourth bytes, a word each, of YCbCr to RGB conversions come from.
#pragma once

#include "frame/line_pairs.hpp"
#include "frame/packed_layouts.hpp"
#include "frame/planes.hpp"
#include "yuv_to_rgb/math.hpp"

namespace orva::ORVA_ISA {

// Packed 4:2:2: 4 bytes per pixel pair in one plane.
template <class Layout> class PackedReader {
public:
    ORVA_INLINE explicit PackedReader(const Descriptor& d) : src(mainSource(d)) {}

    template <class V> ORVA_INLINE Yuv<V> take() {
        const V words = spreadHalves(V::load(src));
        src += V::bytes;
        return split(words);
    }

    // Up to 4 pairs of pixels.
    template <uint32_t count> ORVA_INLINE Yuv<Vec128> takePairs() {
        const Vec128 words = Vec128::loadFirst<4 * count>(src);
        src += 4 * count;
        return split(words);
    }

    ORVA_INLINE void endRow() { src.endRow(); }

private:
    template <class V> ORVA_INLINE static Yuv<V> split(V words) {
        return {Layout::template luma<2>(words), Layout::template chroma<3>(words)};
    }

    SourcePointer src;
};

// A plane of luma and, right behind its rows, one of chroma pairs that moves by the same gap.
class SemiPlanarReader {
public:
    ORVA_INLINE explicit SemiPlanarReader(const Descriptor& d)
        : luma(mainSource(d)), chroma(luma.chromaPlane(d.srcPitch, d.srcHeight)) {
        __builtin_prefetch(chroma);
    }

    template <class V> ORVA_INLINE Yuv<V> take() {
        const V bytes = spreadQuarters(V::loadHalves(luma, chroma));
        luma += V::bytes / 2;
        chroma += V::bytes / 2;
        return split(bytes);
    }

    template <uint32_t count> ORVA_INLINE Yuv<Vec128> takePairs() {
        const Vec128 bytes = Vec128::loadFirstHalves<2 * count>(luma, chroma);
        luma += 2 * count;
        chroma += 2 * count;
        return split(bytes);
    }

    ORVA_INLINE void endRow() {
        luma.endRow();
        chroma.endRow();
    }

private:
    template <class V> ORVA_INLINE static Yuv<V> split(V lumaThenChroma) {
        return {shiftRight16<8 - 2>(unpackLow8(V::zero(), lumaThenChroma)),
                shiftRight16<8 - 3>(unpackHigh8(V::zero(), lumaThenChroma))};
    }

    SourcePointer luma, chroma;
};

// UYVY16I reduced by a factor: the luma of every factor-th pixel, which is the first one of a pair,
// and the chroma of every other pair among those.
template <uint32_t factor> class ReducingReader {
public:
    ORVA_INLINE explicit ReducingReader(const Descriptor& d)
        : lines(lineAddresses(d)), src(lines.line()) {}

    template <class V> ORVA_INLINE Yuv<V> take() {
        lines.template fetchFromNextLine<2 * stride * V::bytes>(src);
        const V first = everyDword<V, stride>(src);
        const V second = everyDword<V, stride>(src + stride * V::bytes);
        src += 2 * stride * V::bytes;
        return sampled(first, second);
    }

    template <uint32_t count> ORVA_INLINE Yuv<Vec128> takePairs() {
        const FewDwords pairs = fewDwords<stride, 2 * count>(src);
        src += 8 * stride * count;
        return sampled(pairs.first, pairs.second);
    }

    ORVA_INLINE void endRow() {
        lines.endRow();
        src = lines.line();
    }

private:
    static constexpr uint32_t stride = factor / 2;  // in pairs, which are dwords

    template <class V> ORVA_INLINE static Yuv<V> sampled(V first, V second) {
        const V oddLumaDropped = V::all32(0xFFFF);
        return {packWords(Uyvy::luma<2>(first) & oddLumaDropped,
                          Uyvy::luma<2>(second) & oddLumaDropped),
                Uyvy::chroma<3>(evenDwords(first, second))};
    }

    LinePairs<Moves::usedLine> lines;
    const uint8_t* src;
};

// No fourth byte at all, for BGR24I.
class NoFourthWords {
public:
    ORVA_INLINE explicit NoFourthWords(const Descriptor&) {}
    template <class V> ORVA_INLINE V take() { return V::zero(); }
    template <uint32_t> ORVA_INLINE Vec128 takePairs() { return Vec128::zero(); }
    ORVA_INLINE void endRow() {}
};

// Single pairs have the constant one byte too high in the odd pixel's word and not at all in the
// even one's, so that saturation makes it 0 or 255. Hosts compare bytes: it must not move.
ORVA_INLINE Wide pairwiseConstant(const Descriptor& d) {
    return Wide::all32(uint32_t(d.alphaValue) << 24);
}

// The descriptor's constant.
class FourthWordsFromConstant {
public:
    ORVA_INLINE explicit FourthWordsFromConstant(const Descriptor& d)
        : block(Wide::all16(int16_t(d.alphaValue))), pair(pairwiseConstant(d)) {}

    template <class V> ORVA_INLINE V take() { return constant<V>(block); }
    template <uint32_t> ORVA_INLINE Vec128 takePairs() { return constant<Vec128>(pair); }
    ORVA_INLINE void endRow() {}

private:
    Constant block, pair;
};

// The constant as single pairs have it, in blocks as well: the reducing modes.
class FourthWordsOfPairs {
public:
    ORVA_INLINE explicit FourthWordsOfPairs(const Descriptor& d) : pairs(pairwiseConstant(d)) {}

    template <class V> ORVA_INLINE V take() { return constant<V>(pairs); }
    template <uint32_t> ORVA_INLINE Vec128 takePairs() { return constant<Vec128>(pairs); }
    ORVA_INLINE void endRow() {}

private:
    Constant pairs;
};

// The source's alpha plane. Blocks move the running pointer, single pairs do not: they read at
// their place in the row, behind what the row's blocks and earlier pairs took.
class FourthWordsFromPlane {
public:
    ORVA_INLINE explicit FourthWordsFromPlane(const Descriptor& d) : src(alphaSource(d)) {}

    template <class V> ORVA_INLINE V take() {
        const V bytes = spreadQuarters(V::loadLow(src));
        src += 8 * V::lanes;
        return unpackLow8(bytes, V::zero());
    }

    template <uint32_t count> ORVA_INLINE Vec128 takePairs() {
        const Vec128 bytes = Vec128::loadFirst<2 * count>(src + pixelsInPairs);
        pixelsInPairs += 2 * count;
        return unpackLow8(bytes, Vec128::zero());
    }

    ORVA_INLINE void endRow() {
        src.endRow();
        pixelsInPairs = 0;
    }

private:
    SourcePointer src;
    size_t pixelsInPairs = 0;
};

}  // namespace orva::ORVA_ISA
