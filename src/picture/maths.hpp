// The arithmetic of the engine on vectors of 8 * lanes pixels. Each value is one 32-bit sum that is
// rounded once.
//
// The sums of even and of odd pixels are dwords whose upper halves are the results: merged, they
// are words in pixel order without a shift and without saturation, which the sums never need. The
// sums of luma are made once and shared by the three colours.
#pragma once

#include "picture/samples.hpp"
#include "rgb/pixels.hpp"

namespace orva::ORVA_ISA {

ORVA_INLINE Wide wordPairs(int16_t even, int16_t odd) {
    return Wide::all32(uint16_t(even) | uint32_t(uint16_t(odd)) << 16);
}
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
    template <class Reader, bool last>
    ORVA_INLINE static SitedChroma take(const Source& from, size_t x) {
        const Wide own = Reader::template chroma<Wide>(from, x);
        const Wide next = last ? nextDwords(own) : Reader::template chroma<Wide>(from, x + 2);
        return {centredMean(own, own), centredMean(own, next)};
    }
};
struct NearestUp {
    template <class Reader, bool>
    ORVA_INLINE static SitedChroma take(const Source& from, size_t x) {
        const Wide own = Reader::template chroma<Wide>(from, x);
        const Wide centred = centredMean(own, own);
        return {centred, centred};
    }
};

// ---- Samples to pixels ----

class ToPixelsMath {
public:
    ORVA_INLINE explicit ToPixelsMath(const picture::Constants& c)
        : evenLuma(wordPairs(c.toPixels.luma, 0)), oddLuma(wordPairs(0, c.toPixels.luma)),
          blue(wordPairs(c.toPixels.blue)), green(wordPairs(c.toPixels.green)),
          red(wordPairs(c.toPixels.red)), start(Wide::all32(uint32_t(c.toPixels.start))),
          alpha(Wide::all16(c.alpha)) {}

    ORVA_INLINE Pixels8<Wide> operator()(Wide luma, const SitedChroma& chroma) const {
        const Wide even = maddAdd(start, luma, evenLuma), odd = maddAdd(start, luma, oddLuma);
        const Wide blueRed =
            packBytes(channel(even, odd, chroma, blue), channel(even, odd, chroma, red));
        const Wide greenAlpha = packBytes(channel(even, odd, chroma, green), alpha);
        const Wide blueGreen = unpackLow8(blueRed, greenAlpha);
        const Wide redAlpha = unpackHigh8(blueRed, greenAlpha);
        const Wide first = unpackLow16(blueGreen, redAlpha);
        const Wide second = unpackHigh16(blueGreen, redAlpha);
        return {zipLanesLow(first, second), zipLanesHigh(first, second)};
    }

private:
    ORVA_INLINE static Wide channel(Wide even, Wide odd, const SitedChroma& chroma, Wide gain) {
        return mergeUpperHalves(maddAdd(even, chroma.even, gain), maddAdd(odd, chroma.odd, gain));
    }

    Wide evenLuma, oddLuma;
    Wide blue, green, red;
    Wide start, alpha;
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

// Four bytes per pixel as word pairs (first, third) and (second, alpha).
struct Split {
    Wide outer, inner;

    ORVA_INLINE explicit Split(Wide pixels)
        : outer(pixels & Wide::all16(0xFF)), inner(shiftRight16<8>(pixels)) {}
    ORVA_INLINE Split(Wide outer, Wide inner) : outer(outer), inner(inner) {}

    ORVA_INLINE Split operator+(const Split& other) const {
        return {add16(outer, other.outer), add16(inner, other.inner)};
    }
};

// Four times the colour at the even pixels of 8 * lanes. `first` that no pixel precedes them.
struct CositedDown {
    template <bool first> ORVA_INLINE static Split take(const uint8_t* pixels, Wide a, Wide b) {
        const Wide beforeA = first ? previousDwords(a) : Wide::load(pixels - 4);
        const Wide beforeB = Wide::load(pixels + Wide::bytes - 4);
        const Split own(evenDwords(a, b));
        return own + own + Split(oddDwords(a, b)) + Split(evenDwords(beforeA, beforeB));
    }
};
struct NearestDown {
    template <bool> ORVA_INLINE static Split take(const uint8_t*, Wide a, Wide b) {
        const Split own(evenDwords(a, b));
        return {shiftLeft16<2>(own.outer), shiftLeft16<2>(own.inner)};
    }
};

class FromPixelsMath {
public:
    ORVA_INLINE explicit FromPixelsMath(const picture::Constants& c)
        : luma(c.fromPixels.luma, c.fromPixels.lumaStart),
          cb(c.fromPixels.cb, c.fromPixels.chromaStart),
          cr(c.fromPixels.cr, c.fromPixels.chromaStart) {}

    template <class Down, bool first> ORVA_INLINE Words<Wide> take(const uint8_t* pixels) const {
        const Wide a = Wide::load(pixels), b = Wide::load(pixels + Wide::bytes);
        const Split colour = Down::template take<first>(pixels, a, b);
        // What came from a and then b, lane by lane, is brought into memory order.
        return {groupHalves(packWords(shiftRightSigned32<13>(luma(Split(a))),
                                      shiftRightSigned32<13>(luma(Split(b))))),
                groupHalves(mergeUpperHalves(shiftLeft32<16 - 15>(cb(colour)),
                                             shiftLeft32<16 - 15>(cr(colour))))};
    }

private:
    struct Sum {
        Wide start, outer, inner;

        ORVA_INLINE Sum(const picture::RgbWeights& w, int32_t start)
            : start(Wide::all32(uint32_t(start))), outer(wordPairs(w.blue, w.red)),
              inner(wordPairs(w.green, 0)) {}

        ORVA_INLINE Wide operator()(const Split& pixels) const {
            return maddAdd(maddAdd(start, pixels.outer, outer), pixels.inner, inner);
        }
    };

    Sum luma, cb, cr;
};

}  // namespace orva::ORVA_ISA
