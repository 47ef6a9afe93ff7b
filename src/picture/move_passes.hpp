// The passes that move bytes: YCbCr of 8 bits, RGB and alpha.
#pragma once

#include "picture/blocks.hpp"
#include "picture/pixels.hpp"

namespace orva::ORVA_ISA {

template <Layout source, Layout destination, class Stores>
void move(const Piece& piece, const Constants&) {
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        ByteWriter<destination>::put(Stores(), ByteReader<source>::template take<Wide>(from, x), to,
                                     x);
    });
}

template <class Stores> void reorderPairs(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        for (size_t i = 2 * x; i < 2 * (x + block); i += Wide::bytes)
            Stores().put(order(Wide::load(from.plane[0] + i)), to.plane[0] + i);
    });
}

template <unsigned source, unsigned destination, bool alphaPlane, class Stores>
void repack(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    const Wide constantAlpha = Wide::all32(uint32_t(c.alpha) << 24);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        Pixels16<Wide> pixels = takePixels<source>(from.plane[0], x);
        if constexpr (source < destination)
            pixels = withAlpha(pixels, alphaPlane ? alphaInPixels(from, x)
                                                  : Pixels16<Wide>{constantAlpha, constantAlpha,
                                                                   constantAlpha, constantAlpha});
        const Pixels16<Wide> ordered{order(pixels.a), order(pixels.b), order(pixels.c),
                                     order(pixels.d)};
        putPixels<destination>(Stores(), ordered, to.plane[0], x);
        if constexpr (alphaPlane && source > destination)
            putAlpha<false>(ordered, to, x);
    });
}

template <bool alphaFirst> void extractAlpha(const Piece& piece, const Constants&) {
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        putAlpha<alphaFirst>(takePixels<4>(from.plane[0], x), to, x);
    });
}

}  // namespace orva::ORVA_ISA
