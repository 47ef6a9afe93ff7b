// Where the packed 4:2:2 layouts keep luma and chroma.
//
// Seen as 16-bit words, one per pixel, a word is a luma byte and a chroma byte (Cb in even pixels,
// Cr in odd ones). A layout takes them apart and puts them together; the samples come out in words,
// multiplied by 2^scale, which saves a shift where the arithmetic wants them larger.
#pragma once

#include "simd/bytes.hpp"

namespace orva::ORVA_ISA {

// UYVY16I, with luma in the high byte of each word, and YUYV16I, with luma in the low one.
template <bool lumaIsHigh> struct WordLayout {
    template <int scale, class V> ORVA_INLINE static V luma(V words) {
        return lumaIsHigh ? highBytes<scale>(words) : lowBytes<scale>(words);
    }
    template <int scale, class V> ORVA_INLINE static V chroma(V words) {
        return lumaIsHigh ? lowBytes<scale>(words) : highBytes<scale>(words);
    }

    template <class V> ORVA_INLINE static V join(V luma, V chroma) {
        return low(luma, chroma) | shiftLeft16<8>(high(luma, chroma));
    }
    template <class V> ORVA_INLINE static V interleaveLow(V luma, V chroma) {
        return unpackLow8(low(luma, chroma), high(luma, chroma));
    }
    template <class V> ORVA_INLINE static V interleaveHigh(V luma, V chroma) {
        return unpackHigh8(low(luma, chroma), high(luma, chroma));
    }

private:
    template <class V> ORVA_INLINE static V low(V luma, V chroma) {
        return lumaIsHigh ? chroma : luma;
    }
    template <class V> ORVA_INLINE static V high(V luma, V chroma) {
        return lumaIsHigh ? luma : chroma;
    }
};

using Uyvy = WordLayout<true>;
using Yuyv = WordLayout<false>;

// The words are (Cb, Cr) and (Y, Y); with the two middle bytes exchanged they are those of UYVY16I.
struct Uvyy {
    template <int scale, class V> ORVA_INLINE static V luma(V words) {
        return Uyvy::luma<scale>(swapMiddleBytes(words));
    }
    template <int scale, class V> ORVA_INLINE static V chroma(V words) {
        return Uyvy::chroma<scale>(swapMiddleBytes(words));
    }
    template <class V> ORVA_INLINE static V join(V luma, V chroma) {
        return swapMiddleBytes(Uyvy::join(luma, chroma));
    }
    template <class V> ORVA_INLINE static V interleaveLow(V luma, V chroma) {
        return swapMiddleBytes(Uyvy::interleaveLow(luma, chroma));
    }
    template <class V> ORVA_INLINE static V interleaveHigh(V luma, V chroma) {
        return swapMiddleBytes(Uyvy::interleaveHigh(luma, chroma));
    }
};

}  // namespace orva::ORVA_ISA
