// How the reducing kernel modes walk their source: along two running line pointers in turn, taking
// every factor-th pixel of a line, where factor is 2 in kernel mode 1 and 4 in mode 2.
#pragma once

#include "frame/kernel.hpp"
#include "frame/memory_access.hpp"

namespace orva::ORVA_ISA {

// Pitches in the direction of the image are added for the second line of a pair and from pair to
// pair, on top of the row gap. The lines of a pair lie factor lines apart; a source whose pairs are
// adjacent has the second line next to the first but the same advance. Without line addressing both
// pointers start at the first line, and the row gap alone moves them.
struct LineAddresses {
    const uint8_t* lineA;
    const uint8_t* lineB;
    ptrdiff_t pairAdvance;
    uint32_t rowCount;
};

inline LineAddresses lineAddresses(const Descriptor& d) {
    const uint8_t* const src = static_cast<const uint8_t*>(d.srcData);
    if (d.lineMode != 1 && d.lineMode != 2)
        return {src, src, d.srcRowGap, d.srcHeight};
    const ptrdiff_t factor = d.kernelMode == 1 ? 2 : 4;
    const ptrdiff_t downwards = d.srcRowGap < 0 ? -ptrdiff_t(d.srcPitch) : ptrdiff_t(d.srcPitch);
    return {src, src + (d.srcLinePairAdjacent ? 1 : factor) * downwards,
            d.srcRowGap + 2 * factor * downwards, d.dstHeight};
}

// Which of the two pointers moves on after a row: for YCbCr sources the one just used, for BGR
// sources the other. Hosts compare bytes: neither must change.
enum class Moves { usedLine, otherLine };

template <Moves moves> class LinePairs {
public:
    ORVA_INLINE explicit LinePairs(const LineAddresses& lines)
        : used(lines.lineA), other(lines.lineB), pairAdvance(lines.pairAdvance) {
        __builtin_prefetch(used);
    }

    ORVA_INLINE const uint8_t* line() const { return used; }

    // Asks for what the next line has in place of bytes of this one. Lines lie apart, which defeats
    // the processor's own look-ahead: left to that, a row takes up to 1.8 times as long.
    template <size_t bytes> ORVA_INLINE void fetchFromNextLine(const uint8_t* inThisLine) const {
        for (size_t i = 0; i < bytes; i += cacheLine)
            __builtin_prefetch(inThisLine + (next() - used) + i);
    }

    ORVA_INLINE void endRow() {
        const uint8_t* const following = next();
        other = moves == Moves::usedLine ? used + pairAdvance : used;
        used = following;
    }

private:
    ORVA_INLINE const uint8_t* next() const {
        return moves == Moves::otherLine ? other + pairAdvance : other;
    }

    const uint8_t* used;
    const uint8_t* other;
    ptrdiff_t pairAdvance;
};

// Up to 8 dwords, each stride-th from p on; nothing between and behind them is read.
struct FewDwords {
    Vec128 first, second;
};

template <uint32_t stride, uint32_t count> ORVA_INLINE FewDwords fewDwords(const uint8_t* p) {
    constexpr size_t step = 4 * stride;
    if constexpr (count == 8)
        return {Vec128::gather<4>(p, step), Vec128::gather<4>(p + 4 * step, step)};
    else
        return {Vec128::gather<count>(p, step), Vec128::zero()};
}

// 4 * V::lanes dwords in memory order, each stride-th from p on.
template <class V, uint32_t stride> ORVA_INLINE V everyDword(const uint8_t* p) {
    if constexpr (stride == 1)
        return V::load(p);
    else
        return groupHalves(evenDwords(everyDword<V, stride / 2>(p),
                                      everyDword<V, stride / 2>(p + stride / 2 * V::bytes)));
}

}  // namespace orva::ORVA_ISA
