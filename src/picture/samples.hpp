// How every layout of YCbCr becomes words, and words become bytes of every layout.
//
// Words lie in memory order in a vector: luma of 8 * lanes pixels, or (Cb, Cr) pairs of as many. A
// reader says what the chroma of the pairs one further on is, too: cosited chroma is a mean of
// both.
#pragma once

#include "frame/memory_access.hpp"
#include "frame/packed_layouts.hpp"
#include "picture/passes.hpp"
#include "simd/v210.hpp"

namespace orva::ORVA_ISA {

using picture::Layout;
using picture::Piece;
using picture::Source;
using picture::Target;

// At 10-bit scale from readers, of the destination's depth and not yet bounded to writers.
template <class V> struct Words { V luma, chroma; };

// ---- Readers: words of 10-bit scale from pixel x on; and the bytes of a pair in each plane ----

template <Layout> struct Reader;

template <class PackedLayout> struct PackedWords {
    static constexpr size_t pairBytes[] = {4};
    template <class V> ORVA_INLINE static V luma(const Source& from, size_t x) {
        return PackedLayout::template luma<2>(V::load(from.plane[0] + 2 * x));
    }
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return PackedLayout::template chroma<2>(V::load(from.plane[0] + 2 * x));
    }
};
template <> struct Reader<Layout::uyvy> : PackedWords<Uyvy> {};
template <> struct Reader<Layout::yuyv> : PackedWords<Yuyv> {};
template <> struct Reader<Layout::uvyy> : PackedWords<Uvyy> {};

struct ByteLuma {
    template <class V> ORVA_INLINE static V luma(const Source& from, size_t x) {
        return shiftLeft16<2>(V::loadBytesAsWords(from.plane[0] + x));
    }
};
template <> struct Reader<Layout::semiPlanar8> : ByteLuma {
    static constexpr size_t pairBytes[] = {2, 2};
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return shiftLeft16<2>(V::loadBytesAsWords(from.plane[1] + x));
    }
};
template <> struct Reader<Layout::planar8> : ByteLuma {
    static constexpr size_t pairBytes[] = {2, 1, 1};
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return shiftLeft16<2>(
            V::loadBytesInTurnAsWords(from.plane[1] + x / 2, from.plane[2] + x / 2));
    }
};

template <> struct Reader<Layout::semiPlanar10> {
    static constexpr size_t pairBytes[] = {4, 4};
    template <class V> ORVA_INLINE static V luma(const Source& from, size_t x) {
        return shiftRight16<6>(V::load(from.plane[0] + 2 * x));
    }
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return shiftRight16<6>(V::load(from.plane[1] + 2 * x));
    }
};
template <> struct Reader<Layout::planar10> {
    static constexpr size_t pairBytes[] = {4, 2, 2};
    template <class V> ORVA_INLINE static V luma(const Source& from, size_t x) {
        return V::load(from.plane[0] + 2 * x) & V::all16(0x3FF);
    }
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return (V::loadWordsAsDwords(from.plane[1] + x) |
                shiftLeft32<16>(V::loadWordsAsDwords(from.plane[2] + x))) &
               V::all16(0x3FF);
    }
};

// A strip of samples, which V210 is unpacked into.
template <> struct Reader<Layout::v210> {
    static constexpr size_t pairBytes[] = {0};  // in the cache already
    template <class V> ORVA_INLINE static V luma(const Source& from, size_t x) {
        return V::load(from.plane[0] + 2 * x);
    }
    template <class V> ORVA_INLINE static V chroma(const Source& from, size_t x) {
        return V::load(from.plane[1] + 2 * x);
    }
};

// ---- Bytes: 16 * lanes pixels, whose halves are spread over the lanes ----

template <class V> struct Bytes { V luma, chroma; };

template <Layout> struct ByteReader;
template <Layout> struct ByteWriter;

template <class PackedLayout> struct PackedBytes {
    template <class V> ORVA_INLINE static Bytes<V> take(const Source& from, size_t x) {
        const V a = V::load(from.plane[0] + 2 * x), b = V::load(from.plane[0] + 2 * x + V::bytes);
        return {
            packBytes(PackedLayout::template luma<0>(a), PackedLayout::template luma<0>(b)),
            packBytes(PackedLayout::template chroma<0>(a), PackedLayout::template chroma<0>(b))};
    }
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const Bytes<V>& in, const Target& to, size_t x) {
        stores.put(PackedLayout::interleaveLow(in.luma, in.chroma), to.plane[0] + 2 * x);
        stores.put(PackedLayout::interleaveHigh(in.luma, in.chroma),
                   to.plane[0] + 2 * x + V::bytes);
    }
};
template <> struct ByteReader<Layout::uyvy> : PackedBytes<Uyvy> {};
template <> struct ByteReader<Layout::yuyv> : PackedBytes<Yuyv> {};
template <> struct ByteReader<Layout::uvyy> : PackedBytes<Uvyy> {};
template <> struct ByteWriter<Layout::uyvy> : PackedBytes<Uyvy> {};
template <> struct ByteWriter<Layout::yuyv> : PackedBytes<Yuyv> {};
template <> struct ByteWriter<Layout::uvyy> : PackedBytes<Uvyy> {};

template <> struct ByteReader<Layout::semiPlanar8> {
    template <class V> ORVA_INLINE static Bytes<V> take(const Source& from, size_t x) {
        return {spreadHalves(V::load(from.plane[0] + x)), spreadHalves(V::load(from.plane[1] + x))};
    }
};
template <> struct ByteWriter<Layout::semiPlanar8> {
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const Bytes<V>& in, const Target& to, size_t x) {
        stores.put(groupHalves(in.luma), to.plane[0] + x);
        stores.put(groupHalves(in.chroma), to.plane[1] + x);
    }
};

template <> struct ByteReader<Layout::planar8> {
    template <class V> ORVA_INLINE static Bytes<V> take(const Source& from, size_t x) {
        const V halves = spreadHalves(V::loadHalves(from.plane[1] + x / 2, from.plane[2] + x / 2));
        return {spreadHalves(V::load(from.plane[0] + x)),
                spreadHalves(unpackLow8(halves, unpackHigh64(halves, halves)))};
    }
};
template <> struct ByteWriter<Layout::planar8> {
    // The halves of a vector that go to two planes are always stored through the cache.
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const Bytes<V>& in, const Target& to, size_t x) {
        stores.put(groupHalves(in.luma), to.plane[0] + x);
        const V pairs = groupHalves(in.chroma);
        groupHalves(packBytes(lowBytes<0>(pairs), highBytes<0>(pairs)))
            .storeHalves(to.plane[1] + x / 2, to.plane[2] + x / 2);
    }
};

// ---- Writers: words of the destination's depth, for 16 * lanes pixels ----

template <class V> struct WordsPair { Words<V> first, second; };

// Bounds the words, but for V210's, which lie in a strip until packV210 does.
template <Layout layout> struct Writer {
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const WordsPair<V>& in, const Target& to, size_t x) {
        ByteWriter<layout>::put(stores,
                                Bytes<V>{packBytes(in.first.luma, in.second.luma),
                                         packBytes(in.first.chroma, in.second.chroma)},
                                to, x);
    }
};

// V210 uses the codes from 4 to 1019 only.
template <int least> struct TenBits {
    template <class V> ORVA_INLINE static V bounded(V words) {
        return min16(max16(words, V::all16(least)), V::all16(1023 - least));
    }
};

template <> struct Writer<Layout::semiPlanar10> : TenBits<0> {
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const WordsPair<V>& in, const Target& to, size_t x) {
        putWords(stores, in.first, to, x);
        putWords(stores, in.second, to, x + 8 * V::lanes);
    }

private:
    template <class Stores, class V>
    ORVA_INLINE static void putWords(Stores stores, const Words<V>& in, const Target& to,
                                     size_t x) {
        stores.put(shiftLeft16<6>(bounded(in.luma)), to.plane[0] + 2 * x);
        stores.put(shiftLeft16<6>(bounded(in.chroma)), to.plane[1] + 2 * x);
    }
};

template <> struct Writer<Layout::planar10> : TenBits<0> {
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores stores, const WordsPair<V>& in, const Target& to, size_t x) {
        stores.put(bounded(in.first.luma), to.plane[0] + 2 * x);
        stores.put(bounded(in.second.luma), to.plane[0] + 2 * x + V::bytes);
        const V a = bounded(in.first.chroma), b = bounded(in.second.chroma);
        const V low = V::all32(0xFFFF);
        stores.put(groupHalves(packWords(a & low, b & low)), to.plane[1] + x);
        stores.put(groupHalves(packWords(shiftRight32<16>(a), shiftRight32<16>(b))),
                   to.plane[2] + x);
    }
};

// A strip of samples, which V210 is packed from.
template <> struct Writer<Layout::v210> {
    template <class Stores, class V>
    ORVA_INLINE static void put(Stores, const WordsPair<V>& in, const Target& to, size_t x) {
        in.first.luma.store(to.plane[0] + 2 * x);
        in.second.luma.store(to.plane[0] + 2 * x + V::bytes);
        in.first.chroma.store(to.plane[1] + 2 * x);
        in.second.chroma.store(to.plane[1] + 2 * x + V::bytes);
    }
};

}  // namespace orva::ORVA_ISA
