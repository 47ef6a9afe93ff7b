// The arithmetic of the engine on vectors of 8 * lanes pixels. Each value is one 32-bit sum that is
// rounded once.
//
// Where the sums' scale allows it, the sums of even and of odd pixels are dwords whose upper halves
// are the results: merged, they are words in pixel order without a shift and without saturation,
// which the sums never need. The sums of luma are made once and shared by the three colours.
#pragma once

#include "picture/samples.hpp"
#include "rgb/pixels.hpp"

namespace orva::ORVA_ISA {

ORVA_INLINE Wide wordPairs(picture::ChromaWeights weights) {
    return wordPairs(weights.cb, weights.cr);
}

// ---- Chroma up: (Cb, Cr) pairs at twice the 10-bit scale, centred on 0 ----

struct SitedChroma {
    Wide even, odd;
};

ORVA_INLINE Wide centredMean(Wide a, Wide b) { return sub16(add16(a, b), Wide::all16(2 * 512)); }

// Both take the row's chroma from pixel x on; `last` that no pair follows the vector's last one.
struct CositedUp {
    template <class Reader>
    ORVA_INLINE static SitedChroma take(const Source& from, size_t x, bool last) {
        const Wide own = Reader::template chroma<Wide>(from, x);
        const Wide next = last ? nextDwords(own) : Reader::template chroma<Wide>(from, x + 2);
        return {centredMean(own, own), centredMean(own, next)};
    }
};
struct NearestUp {
    template <class Reader>
    ORVA_INLINE static SitedChroma take(const Source& from, size_t x, bool) {
        const Wide own = Reader::template chroma<Wide>(from, x);
        const Wide centred = centredMean(own, own);
        return {centred, centred};
    }
};

// ---- Samples to pixels ----

template <bool alphaFirst> class ToPixelsMath {
public:
    ORVA_INLINE explicit ToPixelsMath(const picture::Constants& c)
        : evenLuma(wordPairs(c.toPixels.luma, 0)), oddLuma(wordPairs(0, c.toPixels.luma)),
          blue(wordPairs(c.toPixels.blue)), green(wordPairs(c.toPixels.green)),
          red(wordPairs(c.toPixels.red)), start(Wide::all32(uint32_t(c.toPixels.start))) {}

    ORVA_INLINE Pixels8<Wide> operator()(Wide luma, const SitedChroma& chroma, Wide alpha) const {
        const Wide even = maddAdd(start, luma, evenLuma), odd = maddAdd(start, luma, oddLuma);
        const Wide b = channel(even, odd, chroma, blue), g = channel(even, odd, chroma, green),
                   r = channel(even, odd, chroma, red);
        return alphaFirst ? interleaved(alpha, b, g, r) : interleaved(b, g, r, alpha);
    }

private:
    ORVA_INLINE static Wide channel(Wide even, Wide odd, const SitedChroma& chroma, Wide gain) {
        return mergeUpperHalves(maddAdd(even, chroma.even, gain), maddAdd(odd, chroma.odd, gain));
    }

    // The four bytes of pixels from words, bounded, in memory order.
    ORVA_INLINE static Pixels8<Wide> interleaved(Wide b0, Wide b1, Wide b2, Wide b3) {
        const Wide b02 = packBytes(b0, b2), b13 = packBytes(b1, b3);
        const Wide b01 = unpackLow8(b02, b13), b23 = unpackHigh8(b02, b13);
        const Wide first = unpackLow16(b01, b23), second = unpackHigh16(b01, b23);
        return {zipLanesLow(first, second), zipLanesHigh(first, second)};
    }

    Wide evenLuma, oddLuma;
    Wide blue, green, red;
    Wide start;
};

// ---- Samples to samples ----

class ToSamplesMath {
public:
    ORVA_INLINE explicit ToSamplesMath(const picture::Constants& c)
        : evenLuma(wordPairs(c.toSamples.luma, 0)), oddLuma(wordPairs(0, c.toSamples.luma)),
          toLuma(wordPairs(c.toSamples.toLuma)), toCb(wordPairs(c.toSamples.toCb)),
          toCr(wordPairs(c.toSamples.toCr)),
          lumaStart(Wide::all32(uint32_t(c.toSamples.lumaStart))),
          chromaStart(Wide::all32(uint32_t(c.toSamples.chromaStart))) {}

    ORVA_INLINE Words<Wide> operator()(Wide luma, const SitedChroma& chroma) const {
        const Wide even = maddAdd(maddAdd(lumaStart, luma, evenLuma), chroma.even, toLuma);
        const Wide odd = maddAdd(maddAdd(lumaStart, luma, oddLuma), chroma.odd, toLuma);
        const Wide cb = maddAdd(chromaStart, chroma.even, toCb);
        const Wide cr = maddAdd(chromaStart, chroma.even, toCr);
        return {mergeUpperHalves(shiftLeft32<16 - 14>(even), shiftLeft32<16 - 14>(odd)),
                mergeUpperHalves(shiftLeft32<16 - 15>(cb), shiftLeft32<16 - 15>(cr))};
    }

private:
    Wide evenLuma, oddLuma;
    Wide toLuma, toCb, toCr;
    Wide lumaStart, chromaStart;
};

// ---- Pixels to samples ----

// Vectors of pixels as word pairs of their bytes 0 and 2, and 1 and 3, doubled.
struct Split {
    Wide outer, inner;

    ORVA_INLINE Split(Wide outer, Wide inner) : outer(outer), inner(inner) {}
    ORVA_INLINE explicit Split(Wide pixels) : Split(lowBytes<1>(pixels), highBytes<1>(pixels)) {}

    ORVA_INLINE Split operator+(const Split& other) const {
        return {add16(outer, other.outer), add16(inner, other.inner)};
    }
};

// Twice the pixel that comes before a row's first even pixel, in the last place.
ORVA_INLINE Split splitPixel(uint32_t pixel) { return Split(Wide::all32(pixel)); }

// From doubled pixels, eight times the colour of each even pixel, by what surrounds it.
struct CositedDown {
    // `before` holds the odd pixels before `odd`, and then those.
    ORVA_INLINE static Split mean(const Split& even, const Split& odd, Split& before) {
        const Split previous(previousDwords(before.outer, odd.outer),
                             previousDwords(before.inner, odd.inner));
        before = odd;
        return even + even + odd + previous;
    }
};
struct NearestDown {
    ORVA_INLINE static Split mean(const Split& even, const Split&, Split&) {
        return {shiftLeft16<2>(even.outer), shiftLeft16<2>(even.inner)};
    }
};

// depth: of the samples.
template <int depth> class FromPixelsMath {
public:
    ORVA_INLINE explicit FromPixelsMath(const picture::Constants& c)
        : luma(c.fromPixels.luma, c.fromPixels.lumaStart),
          cb(c.fromPixels.cb, c.fromPixels.chromaStart),
          cr(c.fromPixels.cr, c.fromPixels.chromaStart) {}

    // The samples of 8 * lanes pixels.
    template <class Down>
    ORVA_INLINE Words<Wide> operator()(const Pixels8<Wide>& pixels, Split& before) const {
        const Split even(everyEvenDword(pixels.a, pixels.b)),
            odd(everyOddDword(pixels.a, pixels.b));
        const Split colour = Down::mean(even, odd, before);
        constexpr int missing = depth == 8 ? 0 : 2;  // fraction bits of luma's 16
        return {mergeUpperHalves(shiftLeft32<missing>(luma(even)), shiftLeft32<missing>(luma(odd))),
                mergeUpperHalves(cb(colour), cr(colour))};
    }

private:
    struct Sum {
        Wide start, outer, inner;

        ORVA_INLINE Sum(const picture::PixelWeights& w, int32_t start)
            : start(Wide::all32(uint32_t(start))), outer(wordPairs(w.byte[0], w.byte[2])),
              inner(wordPairs(w.byte[1], w.byte[3])) {}

        ORVA_INLINE Wide operator()(const Split& pixels) const {
            return maddAdd(maddAdd(start, pixels.outer, outer), pixels.inner, inner);
        }
    };

    Sum luma, cb, cr;
};

}  // namespace orva::ORVA_ISA
