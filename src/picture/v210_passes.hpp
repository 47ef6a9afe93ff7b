// V210 from and to samples. Its rows are whole units of six pixels, and no unit more is touched.
#pragma once

#include "picture/colour_passes.hpp"

namespace orva::ORVA_ISA {

constexpr size_t unitBytes = 16, wordBytes = 12;  // of six pixels, packed and as words of each kind

// Calls many(from, to, unit) for 4 * lanes units and one(from, to, unit) for the rest of those that
// hold the pixels: V210's rows are whole units, of which none further on is touched.
template <class Many, class One> ORVA_INLINE void forUnits(const Piece& piece, Many many, One one) {
    const size_t units = (piece.pixels + 5) / 6;
    forRows(piece, [&](const Source& from, const Target& to) {
        size_t unit = 0;
        for (; unit + 4 * Wide::lanes <= units; unit += 4 * Wide::lanes)
            many(from, to, unit);
        for (; unit < units; ++unit)
            one(from, to, unit);
    });
}

inline void unpackV210(const Piece& piece, const Constants&) {
    const auto put = [](const Twelves<Wide>& words, uint8_t* to) {
        words.first.store(to);
        words.second.store(to + Wide::bytes);
        words.third.store(to + 2 * Wide::bytes);
    };
    forUnits(
        piece,
        [&](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t i) {
                return unpackTenBits(
                    Wide::load(from.plane[0] + unitBytes * unit + Wide::bytes * i));
            };
            const TenBitLanes<Wide> a = take(0), b = take(1), c = take(2), d = take(3);
            fetchAhead(from.plane[0] + unitBytes * unit, 4 * Wide::bytes);
            put(joinTwelves(a.luma, b.luma, c.luma, d.luma), to.plane[0] + wordBytes * unit);
            put(joinTwelves(a.chroma, b.chroma, c.chroma, d.chroma),
                to.plane[1] + wordBytes * unit);
        },
        [](const Source& from, const Target& to, size_t unit) {
            const auto words = unpackTenBits(Vec128::load(from.plane[0] + unitBytes * unit));
            words.luma.store(to.plane[0] + wordBytes * unit);
            words.chroma.store(to.plane[1] + wordBytes * unit);
        });
}

inline void packV210(const Piece& piece, const Constants&) {
    const ChosenStores stores(piece);
    forUnits(
        piece,
        [&](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t plane) {
                const uint8_t* const words = from.plane[plane] + wordBytes * unit;
                const auto bounded = [&](size_t i) {
                    return TenBits<4>::bounded(Wide::load(words + Wide::bytes * i));
                };
                return spreadTwelves(Twelves<Wide>{bounded(0), bounded(1), bounded(2)});
            };
            const TwelvesInLanes<Wide> luma = take(0), chroma = take(1);
            uint8_t* const units = to.plane[0] + unitBytes * unit;
            stores.put(packTenBits<Wide>({luma.a, chroma.a}), units);
            stores.put(packTenBits<Wide>({luma.b, chroma.b}), units + Wide::bytes);
            stores.put(packTenBits<Wide>({luma.c, chroma.c}), units + 2 * Wide::bytes);
            stores.put(packTenBits<Wide>({luma.d, chroma.d}), units + 3 * Wide::bytes);
        },
        [](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t plane) {
                return TenBits<4>::bounded(Vec128::load(from.plane[plane] + wordBytes * unit));
            };
            packTenBits<Vec128>({take(0), take(1)}).store(to.plane[0] + unitBytes * unit);
        });
}

}  // namespace orva::ORVA_ISA
