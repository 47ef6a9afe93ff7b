// The YCbCr to RGB transform on vectors.
//
// Luma comes in words multiplied by 4, chroma as (Cb, Cr) word pairs multiplied by 8. A pair-wise
// multiply-add with gains of 14 fraction bits then leaves each result in the upper half of a 32-bit
// sum: the sums of even and odd pixels merge into words in pixel order without a shift to 14 bits
// and without saturation, which those sums never need. Constants that do not depend on the pixel
// (rounding, the 128 of chroma) are the start value of the sums.
#pragma once

#include "rgb/pixels.hpp"
#include "yuv_to_rgb/coefficients.hpp"

namespace orva::ORVA_ISA {

// The samples of 8 * V::lanes pixels, with the halves spread over the lanes.
template <class V> struct Yuv {
    V luma;    // 4 * Y, a word per pixel
    V chroma;  // 8 * Cb, 8 * Cr, a word pair per pixel pair
};

// Where studio luma lies below its offset and is not clamped, the difference is negative. Full-size
// conversions take its low 8 bits as unsigned in even pixels, so that these are near white where
// odd pixels are black; the reducing modes take the signed value in both. Hosts compare bytes.
enum class EvenLuma { wraps, isSigned };

// clamped: luma is bounded to 16..235 first.
template <bool clamped, EvenLuma evenLuma> class YuvToRgb {
public:
    ORVA_INLINE explicit YuvToRgb(const YuvToRgbCoefSetup& setup)
        : offset(Wide::all16(4 * setup.lumaOffset)), evenGain(wordPairs(setup.lumaGain, 0)),
          oddGain(wordPairs(0, setup.lumaGain)), blueGain(wordPairs(setup.blueFromCb, 0)),
          greenGain(wordPairs(setup.greenFromCb, setup.greenFromCr)),
          redGain(wordPairs(0, setup.redFromCr)), blueStart(start(setup.blueFromCb)),
          greenStart(start(setup.greenFromCb + setup.greenFromCr)),
          redStart(start(setup.redFromCr)) {}

    // fourth: the pixels' fourth bytes, a word each, saturated to bytes here.
    template <class V> ORVA_INLINE Pixels8<V> operator()(const Yuv<V>& in, V fourth) const {
        const V odd = sub16(bounded(in.luma), constant<V>(offset));
        const bool wraps = !clamped && evenLuma == EvenLuma::wraps;
        const V even = wraps ? odd & V::all32(4 * 0xFF) : odd;

        const V blue = channel(in, even, odd, blueStart, blueGain);
        const V green = channel(in, even, odd, greenStart, greenGain);
        const V red = channel(in, even, odd, redStart, redGain);

        const V blueRed = packBytes(blue, red);
        const V greenFourth = packBytes(green, fourth);
        const V blueGreen = unpackLow8(blueRed, greenFourth);
        const V redFourth = unpackHigh8(blueRed, greenFourth);
        return {unpackLow16(blueGreen, redFourth), unpackHigh16(blueGreen, redFourth)};
    }

private:
    // Half a unit of the 14 fraction bits and the chroma offsets, all multiplied by 4 as luma is.
    ORVA_INLINE static Wide start(int chromaGain) {
        return Wide::all32(uint32_t(4 * 8192 - 8 * 128 * chromaGain));
    }

    template <class V> ORVA_INLINE static V bounded(V luma) {
        if constexpr (clamped)
            return min16(max16(luma, V::all16(4 * 16)), V::all16(4 * 235));
        else
            return luma;
    }

    template <class V>
    ORVA_INLINE V channel(const Yuv<V>& in, V even, V odd, const Constant& start,
                          const Constant& gain) const {
        const V chroma = maddAdd(constant<V>(start), in.chroma, constant<V>(gain));
        return mergeUpperHalves(maddAdd(chroma, even, constant<V>(evenGain)),
                                maddAdd(chroma, odd, constant<V>(oddGain)));
    }

    Constant offset;
    Constant evenGain, oddGain;
    Constant blueGain, greenGain, redGain;
    Constant blueStart, greenStart, redStart;
};

}  // namespace orva::ORVA_ISA
