// The RGB to YCbCr transform on vectors.
//
// A vector of 4-byte pixels splits by a mask and a shift into word pairs (B, R) and (G, fourth
// byte), and two multiply-adds of them make a pixel's weighted sum; the fourth byte has weight 0.
// Chroma is point-sampled, Cb from even and Cr from odd pixels, so multiply-adds whose weights
// alternate give Cb0 Cr1 Cb2 Cr3 in order. Rounding and offset are the start value of the sums,
// which stay positive.
#pragma once

#include "rgb/pixels.hpp"
#include "rgb_to_yuv/coefficients.hpp"

namespace orva::ORVA_ISA {

// The samples of 8 * V::lanes pixels in words, one luma and one chroma word per pixel. Each lane
// holds 4 pixels of either half of them, as packing leaves them.
template <class V> struct YuvWords { V luma, chroma; };

// clamped: luma is bounded to 16..235 in the end.
template <bool clamped> class RgbToYuv {
public:
    ORVA_INLINE explicit RgbToYuv(const RgbToYuvConstants& constants)
        : lumaBlueRed(blueRed(constants.luma, constants.luma)),
          lumaGreen(green(constants.luma, constants.luma)),
          chromaBlueRed(blueRed(constants.cb, constants.cr)),
          chromaGreen(green(constants.cb, constants.cr)), lumaStart(start(constants.lumaOffset)),
          chromaStart(start(128)) {}

    template <class V> ORVA_INLINE YuvWords<V> operator()(const Pixels8<V>& pixels) const {
        V lumaWords = packWords(luma(pixels.a), luma(pixels.b));
        if constexpr (clamped)
            lumaWords = min16(max16(lumaWords, V::all16(16)), V::all16(235));
        return {lumaWords, packWords(chroma(pixels.a), chroma(pixels.b))};
    }

    // The luma of 4 * V::lanes pixels in dwords, not yet bounded.
    template <class V> ORVA_INLINE V luma(V pixels) const {
        return weighted(pixels, lumaStart, lumaBlueRed, lumaGreen);
    }

private:
    ORVA_INLINE static Wide blueRed(const RgbWeights& even, const RgbWeights& odd) {
        return Wide::alternating32(wordPair(even.blue, even.red), wordPair(odd.blue, odd.red));
    }
    ORVA_INLINE static Wide green(const RgbWeights& even, const RgbWeights& odd) {
        return Wide::alternating32(wordPair(even.green, 0), wordPair(odd.green, 0));
    }
    ORVA_INLINE static Wide start(uint32_t offset) { return Wide::all32(16384 + (offset << 15)); }

    template <class V> ORVA_INLINE V chroma(V pixels) const {
        return weighted(pixels, chromaStart, chromaBlueRed, chromaGreen);
    }

    template <class V>
    ORVA_INLINE static V weighted(V pixels, const Constant& start, const Constant& blueRedWeights,
                                  const Constant& greenWeights) {
        const V blueRedWords = pixels & V::all16(0xFF);
        const V greenWords = shiftRight16<8>(pixels);
        const V sum =
            maddAdd(maddAdd(constant<V>(start), blueRedWords, constant<V>(blueRedWeights)),
                    greenWords, constant<V>(greenWeights));
        return shiftRight32<15>(sum);
    }

    Constant lumaBlueRed, lumaGreen;
    Constant chromaBlueRed, chromaGreen;
    Constant lumaStart, chromaStart;
};

}  // namespace orva::ORVA_ISA
