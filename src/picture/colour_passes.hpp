// The passes that compute: between YCbCr and pixels, and between codings of YCbCr; and those that
// only rearrange samples as words of 10 bits, to a strip or to a frame.
#pragma once

#include "picture/blocks.hpp"
#include "picture/maths.hpp"
#include "picture/pixels.hpp"

namespace orva::ORVA_ISA {

constexpr unsigned bytesOf(PixelKind kind) { return kind == PixelKind::noAlpha ? 3 : 4; }

// ---- From YCbCr ----

// Calls put(to, x, first, second) with what convert makes of the samples of each half of a block.
template <Layout layout, class Up, class Convert, class Put>
ORVA_INLINE void fromYcbcr(const Piece& piece, Convert convert, Put put) {
    using In = Reader<layout>;
    const size_t lastBlock = piece.rowEnd ? (piece.pixels - 1) / block * block : piece.pixels;
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        const auto first = convert(In::template luma<Wide>(from, x),
                                   Up::template take<In>(from, x, false), from, x);
        const auto second =
            convert(In::template luma<Wide>(from, x + half),
                    Up::template take<In>(from, x + half, x == lastBlock), from, x + half);
        put(to, x, first, second);
        fetchBlockAhead<In>(from, x);
    });
}

template <Layout layout, class Up, PixelKind kind, bool alphaPlane>
void toPixels(const Piece& piece, const Constants& c) {
    const ToPixelsMath<kind == PixelKind::alphaFirst> math(c);
    const Wide constantAlpha = Wide::all16(c.alpha);
    const ChosenStores stores(piece);
    fromYcbcr<layout, Up>(
        piece,
        [&](Wide luma, const SitedChroma& chroma, const Source& from, size_t x) {
            return math(luma, chroma,
                        alphaPlane ? Wide::loadBytesAsWords(from.plane[orva::alphaPlane] + x)
                                   : constantAlpha);
        },
        [&](const Target& to, size_t x, const Pixels8<Wide>& a, const Pixels8<Wide>& b) {
            putPixels<bytesOf(kind)>(stores, {a.a, a.b, b.a, b.b}, to.plane[0], x);
        });
}

template <Layout layout, class Up, Layout destination>
void toYcbcr(const Piece& piece, const Constants& c) {
    const ToSamplesMath math(c);
    const ChosenStores stores(piece);
    fromYcbcr<layout, Up>(
        piece,
        [&](Wide luma, const SitedChroma& chroma, const Source&, size_t) {
            return math(luma, chroma);
        },
        [&](const Target& to, size_t x, const Words<Wide>& first, const Words<Wide>& second) {
            Writer<destination>::put(stores, WordsPair<Wide>{first, second}, to, x);
        });
}

template <Layout layout, Layout destination> void toTenBits(const Piece& piece, const Constants&) {
    using In = Reader<layout>;
    const ChosenStores stores(piece);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        const auto take = [&](size_t at) {
            return Words<Wide>{In::template luma<Wide>(from, at),
                               In::template chroma<Wide>(from, at)};
        };
        fetchBlockAhead<In>(from, x);
        Writer<destination>::put(stores, WordsPair<Wide>{take(x), take(x + half)}, to, x);
    });
}

// ---- From pixels ----

template <PixelKind kind, class Down, Layout layout, bool alphaPlane>
void fromPixels(const Piece& piece, const Constants& c) {
    constexpr unsigned bytes = bytesOf(kind);
    constexpr int depth = layout < Layout::byteLayouts ? 8 : 10;
    const FromPixelsMath<depth> math(c);
    const ChosenStores stores(piece);
    forRows(piece, [&](const Source& from, const Target& to) {
        const uint8_t* const first = from.plane[0];
        Split before = splitPixel(pixelAt<bytes>(piece.rowStart ? first : first - bytes));
        for (size_t x = 0; x < piece.pixels; x += block) {
            const Pixels16<Wide> in = takePixels<bytes>(first, x);
            const auto a = math.template operator()<Down>({in.a, in.b}, before);
            const auto b = math.template operator()<Down>({in.c, in.d}, before);
            Writer<layout>::put(stores, WordsPair<Wide>{a, b}, to, x);
            fetchAhead(first + bytes * x, bytes * block);
            if constexpr (alphaPlane)
                putAlpha<kind == PixelKind::alphaFirst>(stores, in, to, x);
        }
    });
}

}  // namespace orva::ORVA_ISA
