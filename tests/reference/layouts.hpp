// The 4:2:2 layouts of the scalar model, and how a row divides into single pairs and blocks.
#pragma once

#include "reference/bytes.hpp"

namespace reference {

struct YuvPair {
    std::uint8_t y0, y1, cb, cr;
    bool operator==(const YuvPair&) const = default;
};

struct Bgr {
    std::uint8_t b, g, r;
    bool operator==(const Bgr&) const = default;
};

inline Bgr loadBgr(Source at) { return {at[0], at[1], at[2]}; }
inline void storeBgr(Destination at, const Bgr& pixel) {
    at[0] = pixel.b;
    at[1] = pixel.g;
    at[2] = pixel.r;
}

// Positions of a pair's samples. The planes of a semi-planar image move alike, so that one running
// pointer and the distance from luma to chroma address both of them.
struct YuvLayout {
    int y0, y1, cb, cr, pairBytes;
    bool chromaPlane;
};
inline constexpr YuvLayout uyvy16{1, 3, 0, 2, 4, false};
inline constexpr YuvLayout yuyv16{0, 2, 1, 3, 4, false};
inline constexpr YuvLayout uvyy16{2, 3, 0, 1, 4, false};
inline constexpr YuvLayout y8puv8{0, 1, 0, 1, 2, true};

template <typename Byte> struct YuvImage {
    YuvLayout layout;
    Cursor<Byte> at;
    std::int64_t chroma;

    YuvPair load(std::int64_t pair) const {
        const auto luma = at + pair * layout.pairBytes;
        const auto chromas = luma + chroma;
        return {luma[layout.y0], luma[layout.y1], chromas[layout.cb], chromas[layout.cr]};
    }
    void store(std::int64_t pair, const YuvPair& value) const {
        const auto luma = at + pair * layout.pairBytes;
        const auto chromas = luma + chroma;
        luma[layout.y0] = value.y0;
        luma[layout.y1] = value.y1;
        chromas[layout.cb] = value.cb;
        chromas[layout.cr] = value.cr;
    }
    void finishRow(std::int64_t pairs, std::int64_t gap) { at += pairs * layout.pairBytes + gap; }
};

inline YuvImage<const std::uint8_t> sourceYuv(const Descriptor& d, const YuvLayout& layout) {
    const auto distance = std::int64_t{d.srcPitch} * d.srcHeight;
    return {layout, Source(d.srcData), layout.chromaPlane ? distance : 0};
}
inline YuvImage<std::uint8_t> destinationYuv(const Descriptor& d, const YuvLayout& layout) {
    const auto distance = std::int64_t{d.dstPitch} * d.dstHeight;
    return {layout, Destination(d.dstData), layout.chromaPlane ? distance : 0};
}

// Numbers of pixel pairs converted singly before the blocks, in blocks, and singly behind them.
struct Split {
    std::int64_t head, body, tail;

    std::int64_t pairs() const { return head + body + tail; }
    bool inBlock(std::int64_t pair) const { return pair >= head && pair < head + body; }
};
inline Split splitFast(std::int64_t width, std::int64_t block) {
    return {0, width / block * block / 2, 0};
}
// `headBytes` is what one head pair writes.
inline Split splitGeneral(std::int64_t width, std::int64_t block, Destination row, int headBytes) {
    const std::int64_t head = width < 16 ? width / 2 : row.toBoundary() / headBytes;
    const std::int64_t blocks = (width - 2 * head) / block;
    return {head, blocks * block / 2, (width - 2 * head - blocks * block) / 2};
}

}  // namespace reference
