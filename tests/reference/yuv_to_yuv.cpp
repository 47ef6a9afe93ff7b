// YCbCr to YCbCr of the scalar model. Sums stay in 16 bits, where they wrap.
#include "reference/yuv_to_yuv.hpp"

namespace reference {
namespace {

std::int16_t weigh(const ChromaWeights& weights, const YuvPair& pair) {
    return saturate16((weights.cb * (pair.cb - 128) + weights.cr * (pair.cr - 128)) >> 6);
}

int roundingOf(std::int16_t value) { return value >= 0 ? 128 : 0; }

int belowZeroLess128(std::int16_t value) { return (value < 0 ? wrap16(value - 128) : value) >> 8; }

std::uint8_t corrected(const YuvMatrix& m, int luma, int correction) {
    return saturate8(m.bounds.clamp(wrap16(m.bounds.clamp(luma) + correction)));
}

// `decider` is the value whose sign decides the rounding.
std::uint8_t roundedChroma(std::int16_t value, std::int16_t decider) {
    return saturate8(wrap16(belowZeroLess128(wrap16(value + roundingOf(decider))) + 128));
}

}  // namespace

YuvMatrix yuvMatrix(const Descriptor& d) {
    if (d.srcColorSpace == 1 && d.dstColorSpace == 0)
        return {{-1893, -3407}, {16689, 1878}, {1230, 16799}, lumaBounds(d)};
    return {{1627, 3141}, {16218, -1813}, {-1187, 16112}, lumaBounds(d)};
}

// Pairs 0 to 3 are the first half, 4 to 7 the second. Both halves take the luma correction of the
// second and the rounding decision of the first.
YuvBlock convertBlock(const YuvMatrix& m, const YuvBlock& block) {
    YuvBlock out{};
    for (std::size_t k = 0; k < 4; ++k) {
        const YuvPair& first = block[k];
        const YuvPair& second = block[k + 4];
        const std::int16_t sum = wrap16(weigh(m.luma, second) + roundingOf(weigh(m.luma, first)));
        const std::int16_t p = weigh(m.cb, first), q = weigh(m.cr, first);
        out[k] = {corrected(m, first.y0, belowZeroLess128(sum)),
                  corrected(m, first.y1, belowZeroLess128(sum)), roundedChroma(p, p),
                  roundedChroma(q, q)};
        out[k + 4] = {corrected(m, second.y0, sum >> 8), corrected(m, second.y1, sum >> 8),
                      roundedChroma(weigh(m.cb, second), p), roundedChroma(weigh(m.cr, second), q)};
    }
    return out;
}

YuvPair convertGroup(const YuvMatrix& m, const YuvPair& pair) {
    const std::int16_t l = weigh(m.luma, pair), p = weigh(m.cb, pair), q = weigh(m.cr, pair);
    const int correction = belowZeroLess128(wrap16(l + roundingOf(l)));
    return {corrected(m, pair.y0, correction), corrected(m, pair.y1, correction),
            roundedChroma(p, p), roundedChroma(q, q)};
}

void reorderYuv(const Descriptor& d, const YuvLayout& from, const YuvLayout& to) {
    auto source = sourceYuv(d, from);
    auto destination = destinationYuv(d, to);
    const std::int64_t pairs = d.dstWidth / 2;
    for (std::uint32_t r = 0; r < d.srcHeight; ++r) {
        for (std::int64_t pair = 0; pair < pairs; ++pair)
            destination.store(pair, source.load(pair));
        source.finishRow(pairs, d.srcRowGap);
        destination.finishRow(pairs, d.dstRowGap);
    }
}

void convertMatrix(const Descriptor& d, const YuvLayout& from, const YuvLayout& to) {
    const YuvMatrix matrix = yuvMatrix(d);
    const bool fast = destinationAligned(d, 16, 16);
    auto source = sourceYuv(d, from);
    auto destination = destinationYuv(d, to);
    for (std::uint32_t r = 0; r < d.srcHeight; ++r) {
        const Split split =
            fast ? splitFast(d.dstWidth, 16) : splitGeneral(d.dstWidth, 16, destination.at, 4);
        for (std::int64_t pair = 0; pair < split.pairs();) {
            if (!split.inBlock(pair)) {
                destination.store(pair, convertGroup(matrix, source.load(pair)));
                ++pair;
                continue;
            }
            YuvBlock block{};
            for (std::size_t k = 0; k < 8; ++k)
                block[k] = source.load(pair + static_cast<std::int64_t>(k));
            for (const YuvPair& value : convertBlock(matrix, block))
                destination.store(pair++, value);
        }
        source.finishRow(split.pairs(), d.srcRowGap);
        destination.finishRow(split.pairs(), d.dstRowGap);
    }
}

}  // namespace reference
