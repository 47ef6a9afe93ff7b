// Where the packed 4:2:2 layouts keep luma and chroma.
//
// Seen as 16-bit words, one per pixel, a word is a luma byte and a chroma byte (Cb in even pixels,
// Cr in odd ones). A layout takes them apart and puts them together; the samples come out in words,
// multiplied by 2^scale, which saves a shift where the arithmetic wants them larger.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

template <int scale, class V> ORVA_INLINE V lowBytes(V words) {
    if constexpr (scale == 0)
        return words & V::all16(0xFF);
    else
        return shiftLeft16<scale>(words) & V::all16(0xFF << scale);
}

template <int scale, class V> ORVA_INLINE V highBytes(V words) {
    if constexpr (scale == 0)
        return shiftRight16<8>(words);
    else
        return shiftRight16<8 - scale>(words) & V::all16(0xFF << scale);
}

struct Uyvy {
    template <int scale, class V> ORVA_INLINE static V luma(V words) {
        return highBytes<scale>(words);
    }
    template <int scale, class V> ORVA_INLINE static V chroma(V words) {
        return lowBytes<scale>(words);
    }
    template <class V> ORVA_INLINE static V join(V luma, V chroma) {
        return chroma | shiftLeft16<8>(luma);
    }
    template <class V> ORVA_INLINE static V interleaveLow(V luma, V chroma) {
        return unpackLow8(chroma, luma);
    }
    template <class V> ORVA_INLINE static V interleaveHigh(V luma, V chroma) {
        return unpackHigh8(chroma, luma);
    }
};

struct Yuyv {
    template <int scale, class V> ORVA_INLINE static V luma(V words) {
        return lowBytes<scale>(words);
    }
    template <int scale, class V> ORVA_INLINE static V chroma(V words) {
        return highBytes<scale>(words);
    }
    template <class V> ORVA_INLINE static V join(V luma, V chroma) {
        return luma | shiftLeft16<8>(chroma);
    }
    template <class V> ORVA_INLINE static V interleaveLow(V luma, V chroma) {
        return unpackLow8(luma, chroma);
    }
    template <class V> ORVA_INLINE static V interleaveHigh(V luma, V chroma) {
        return unpackHigh8(luma, chroma);
    }
};

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
};

}  // namespace orva::ORVA_ISA
