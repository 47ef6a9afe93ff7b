// The passes that move bytes: YCbCr of 8 bits, RGB and alpha.
#pragma once

#include "picture/blocks.hpp"
#include "picture/pixels.hpp"

namespace orva::ORVA_ISA {

template <Layout source, Layout destination> void move(const Piece& piece, const Constants&) {
    const ChosenStores stores(piece);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        ByteWriter<destination>::put(stores, ByteReader<source>::template take<Wide>(from, x), to,
                                     x);
    });
}

inline void reorderPairs(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    const ChosenStores stores(piece);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        for (size_t i = 2 * x; i < 2 * (x + block); i += Wide::bytes)
            stores.put(order(Wide::load(from.plane[0] + i)), to.plane[0] + i);
    });
}

template <unsigned source, unsigned destination, bool alphaPlane>
void repack(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    const ChosenStores stores(piece);
    const Wide constantAlpha = Wide::all32(uint32_t(c.alpha) << 24);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        Pixels16<Wide> pixels = takePixels<source>(from.plane[0], x);
        if constexpr (source < destination)
            pixels = withAlpha(pixels, alphaPlane ? alphaInPixels(from, x)
                                                  : Pixels16<Wide>{constantAlpha, constantAlpha,
                                                                   constantAlpha, constantAlpha});
        const Pixels16<Wide> ordered{order(pixels.a), order(pixels.b), order(pixels.c),
                                     order(pixels.d)};
        putPixels<destination>(stores, ordered, to.plane[0], x);
        if constexpr (alphaPlane && source > destination)
            putAlpha<false>(stores, ordered, to, x);
    });
}

template <bool alphaFirst> void extractAlpha(const Piece& piece, const Constants&) {
    const ChosenStores stores(piece);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        putAlpha<alphaFirst>(stores, takePixels<4>(from.plane[0], x), to, x);
    });
}

}  // namespace orva::ORVA_ISA
