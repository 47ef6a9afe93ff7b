// The conversion between the BT.601 and BT.709 matrices on vectors: a 2 x 2 matrix on the centred
// chroma pair, and a luma correction from the same pair. Ranges are not converted.
//
// A block of 16 pixels is two halves of 8. The rounding couples them, and hosts compare bytes: the
// first half's luma takes its correction from the pixel 8 places later, and values of the second
// half round by the sign of those 8 places earlier. Additions wrap at 16 bits.
#pragma once

#include "simd/vector.hpp"
#include "yuv_to_yuv/coefficients.hpp"

namespace orva::ORVA_ISA {

// Samples of V::lanes half blocks in words: a luma word per pixel, chroma as (Cb, Cr) word pairs.
template <class V> struct HalfBlock { V luma, chroma; };

template <class V> struct WholeBlock { HalfBlock<V> first, second; };

// clamped: luma is bounded to 16..235 before and after the correction.
template <bool clamped> class MatrixConversion {
public:
    ORVA_INLINE explicit MatrixConversion(const MatrixSetup& setup)
        : lumaWeights(wordPairs(setup.lumaCorrection.cb, setup.lumaCorrection.cr)),
          cbWeights(wordPairs(setup.cb.cb, setup.cb.cr)),
          crWeights(wordPairs(setup.cr.cb, setup.cr.cr)) {}

    // Luma and chroma of the result may lie outside 0..255 and are to be saturated.
    template <class V> ORVA_INLINE WholeBlock<V> operator()(const WholeBlock<V>& in) const {
        const V first = sub16(in.first.chroma, V::all16(128));
        const V second = sub16(in.second.chroma, V::all16(128));

        // A correction per pair, then per pixel.
        const V pairs = weighted(first, second, lumaWeights);
        const V earlier = unpackLow16(pairs, pairs), later = unpackHigh16(pairs, pairs);
        const V correction = add16(later, roundingOf(earlier));

        const V cb = weighted(first, second, cbWeights), cr = weighted(first, second, crWeights);
        const V firstChroma = unpackLow16(cb, cr), secondChroma = unpackHigh16(cb, cr);
        const V rounding = roundingOf(firstChroma);

        return {{corrected(in.first.luma, lowerIfNegative(correction)),
                 offset(lowerIfNegative(add16(firstChroma, rounding)))},
                {corrected(in.second.luma, correction),
                 offset(lowerIfNegative(add16(secondChroma, rounding)))}};
    }

private:
    // One word per pair with 8 fraction bits, saturated: those of the first halves, then the
    // second.
    template <class V> ORVA_INLINE static V weighted(V first, V second, const Constant& weights) {
        return packWords(shiftRightSigned32<6>(madd16(first, constant<V>(weights))),
                         shiftRightSigned32<6>(madd16(second, constant<V>(weights))));
    }

    // Half a unit of the 8 fraction bits where the value is not negative.
    template <class V> ORVA_INLINE static V roundingOf(V value) {
        return exceptBits(V::all16(128), shiftRightSigned16<15>(value));
    }
    template <class V> ORVA_INLINE static V lowerIfNegative(V value) {
        return add16(value, shiftRightSigned16<15>(value) & V::all16(-128));
    }

    template <class V> ORVA_INLINE static V corrected(V luma, V correction) {
        return bounded(add16(bounded(luma), shiftRightSigned16<8>(correction)));
    }
    template <class V> ORVA_INLINE static V offset(V chroma) {
        return add16(shiftRightSigned16<8>(chroma), V::all16(128));
    }
    template <class V> ORVA_INLINE static V bounded(V luma) {
        if constexpr (clamped)
            return min16(max16(luma, V::all16(16)), V::all16(235));
        else
            return luma;
    }

    Constant lumaWeights, cbWeights, crWeights;
};

}  // namespace orva::ORVA_ISA
