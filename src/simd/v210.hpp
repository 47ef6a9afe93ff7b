// Ten-bit samples, three to a dword, from and to words.
//
// A lane is one unit of six pixels, and each half of it is alike: one dword of a chroma, a luma and
// a chroma sample from the low bits up, then one of luma, chroma and luma. So a half holds three
// luma and three chroma samples in their order, which is how V210 alternates Cb and Cr.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// Of each lane, the first 12 bytes: six words of either kind, chroma as Cb Cr pairs.
template <class V> struct TenBitLanes { V luma, chroma; };

#if ORVA_SHUFFLES_BYTES

template <class V> ORVA_INLINE TenBitLanes<V> unpackTenBits(V dwords) {
    // Every sample lies within two bytes, its lowest bit at 0, 2 or 4. A multiplication moves all
    // to the top of their words, where nothing is above them.
    const V luma = shuffleBytes(
        dwords, V::repeat(Vec128::of8(1, 2, 4, 5, 6, 7, 9, 10, 12, 13, 14, 15, -1, -1, -1, -1)));
    const V chroma = shuffleBytes(
        dwords, V::repeat(Vec128::of8(0, 1, 2, 3, 5, 6, 8, 9, 10, 11, 13, 14, -1, -1, -1, -1)));
    const V lumaUp = V::repeat(Vec128::of16(16, 64, 4, 16, 64, 4, 0, 0));
    const V chromaUp = V::repeat(Vec128::of16(64, 4, 16, 64, 4, 16, 0, 0));
    return {shiftRight16<6>(multiply16(luma, lumaUp)),
            shiftRight16<6>(multiply16(chroma, chromaUp))};
}

// The samples must be below 1024.
template <class V> ORVA_INLINE V packTenBits(const TenBitLanes<V>& samples) {
    // The outer samples of chroma's and luma's dwords in turn, and the middle ones of the others.
    const V luma = shuffleBytes(
        samples.luma, V::repeat(Vec128::of8(0, 1, -1, -1, 2, 3, 4, 5, 6, 7, -1, -1, 8, 9, 10, 11)));
    const V chroma =
        shuffleBytes(samples.chroma,
                     V::repeat(Vec128::of8(0, 1, 2, 3, 4, 5, -1, -1, 6, 7, 8, 9, 10, 11, -1, -1)));
    const V outer = alternateDwords(chroma, luma), middle = alternateDwords(luma, chroma);
    return multiply16(outer, V::all32(1 | 16 << 16)) | shiftLeft32<10>(middle);
}

#else

// The first three words of each half, next to each other, and the way back.
template <class V> ORVA_INLINE V joinThrees(V halves) {
    return {_mm_srli_si128(_mm_shufflelo_epi16(halves.v, _MM_SHUFFLE(2, 1, 0, 3)), 2)};
}
template <class V> ORVA_INLINE V spreadThrees(V words) {
    const __m128i halves = _mm_shufflelo_epi16(_mm_slli_si128(words.v, 2), _MM_SHUFFLE(0, 3, 2, 1));
    return Vec128{halves} & Vec128::alternating32(0xFFFFFFFF, 0xFFFF);
}

template <class V> ORVA_INLINE TenBitLanes<V> unpackTenBits(V dwords) {
    const V outer = (dwords & V::all32(0x3FF)) | (shiftRight32<4>(dwords) & V::all32(0x3FF0000));
    const V middle = shiftRight32<10>(dwords) & V::all32(0x3FF);
    const V luma = (shiftRight64<16>(outer) & V::alternating32(0xFFFF0000, 0xFFFF)) |
                   (middle & V::alternating32(0xFFFF, 0));
    const V chroma =
        (outer & V::alternating32(0xFFFFFFFF, 0)) | (middle & V::alternating32(0, 0xFFFF));
    return {joinThrees(luma), joinThrees(chroma)};
}

// The samples must be below 1024.
template <class V> ORVA_INLINE V packTenBits(const TenBitLanes<V>& samples) {
    const V luma = spreadThrees(samples.luma), chroma = spreadThrees(samples.chroma);
    const V outer =
        (chroma & V::alternating32(0xFFFFFFFF, 0)) | shiftLeft64<32>(shiftRight64<16>(luma));
    const V middle = (luma & V::alternating32(0xFFFF, 0)) | (chroma & V::alternating32(0, 0xFFFF));
    return (outer & V::all32(0xFFFF)) | shiftLeft32<4>(outer & V::all32(0xFFFF0000)) |
           shiftLeft32<10>(middle);
}

#endif

}  // namespace orva::ORVA_ISA
