// BGR to YCbCr of the scalar model. Blocks and single pairs give the same bytes, so that a row is
// simply its pairs.
#include "reference/rgb_to_yuv.hpp"

#include "reference/line_addresses.hpp"

namespace reference {
namespace {

std::int16_t weigh(const RgbWeights& weights, const Bgr& pixel) {
    const int sum = weights.r * pixel.r + weights.g * pixel.g + weights.b * pixel.b;
    return saturate16((sum + 16384) >> 15);
}

std::uint8_t lumaOf(const RgbToYuv& c, const Bgr& pixel) {
    return static_cast<std::uint8_t>(weigh(c.y, pixel) + c.offset);
}

}  // namespace

RgbToYuv rgbToYuvConstants(const Descriptor& d) {
    const int offset = d.fullRange ? 0 : 16;
    if (d.dstColorSpace == 1)
        return {d.fullRange ? RgbWeights{9798, 19235, 3735} : RgbWeights{8414, 16519, 3208},
                {-4857, -9535, 14392},
                {14392, -12051, -2340},
                offset,
                lumaBounds(d)};
    return {d.fullRange ? RgbWeights{6966, 23436, 2366} : RgbWeights{5983, 20127, 2032},
            {-3298, -11094, 14392},
            {14392, -13073, -1320},
            offset,
            lumaBounds(d)};
}

YuvPair rgbToYuv(const RgbToYuv& c, const Bgr& even, const Bgr& odd) {
    const auto luma = [&](const Bgr& pixel) {
        return static_cast<std::uint8_t>(c.bounds.clamp(lumaOf(c, pixel)));
    };
    const auto chroma = [](std::int16_t sum) { return static_cast<std::uint8_t>(sum + 128); };
    return {luma(even), luma(odd), chroma(weigh(c.cb, even)), chroma(weigh(c.cr, odd))};
}

void bgrToYuv(const Descriptor& d, int pixelBytes, const YuvLayout& layout, AlphaPlane alpha) {
    const RgbToYuv constants = rgbToYuvConstants(d);
    Source row(d.srcData);
    auto destination = destinationYuv(d, layout);
    Destination alphaRow(d.dstPlane2Data);
    const std::int64_t pairs = d.dstWidth / 2;
    for (std::uint32_t r = 0; r < d.srcHeight; ++r) {
        for (std::int64_t pair = 0; pair < pairs; ++pair) {
            const Source even = row + 2 * pair * pixelBytes;
            const Source odd = even + pixelBytes;
            destination.store(pair, rgbToYuv(constants, loadBgr(even), loadBgr(odd)));
            if (alpha == AlphaPlane::yes) {
                alphaRow[2 * pair] = even[3];
                alphaRow[2 * pair + 1] = odd[3];
            }
        }
        row += 2 * pairs * pixelBytes + d.srcRowGap;
        destination.finishRow(pairs, d.dstRowGap);
        alphaRow += 2 * pairs + d.dstPlane2RowGap;
    }
}

void bgr24ToLumaWords(const Descriptor& d) {
    const RgbToYuv constants = rgbToYuvConstants(d);
    Source source(d.srcData);
    Destination destination(d.dstData);
    for (std::uint32_t r = 0; r < d.srcHeight; ++r) {
        for (std::uint32_t block = 0; block < d.dstWidth / 8; ++block) {
            for (int word = 0; word < 8; ++word) {
                destination[2 * word] = word < 4 ? lumaOf(constants, loadBgr(source + 3 * word))
                                                 : static_cast<std::uint8_t>(constants.offset);
                destination[2 * word + 1] = 0;
            }
            source += 24;
            destination += 16;
        }
        source += d.srcRowGap;
        destination += d.dstRowGap;
    }
}

void reduceToYuv(const Descriptor& d, const YuvLayout& layout, int factor) {
    const RgbToYuv constants = rgbToYuvConstants(d);
    LineAddresses lines = lineAddresses(d);
    auto destination = destinationYuv(d, layout);
    const std::int64_t pairs = d.dstWidth / 2;
    for (std::uint32_t r = 0; r < lines.rowCount; ++r) {
        const Source line = r % 2 ? lines.lineB : lines.lineA;
        for (std::int64_t pair = 0; pair < pairs; ++pair) {
            const Source even = line + 8 * pair * factor;
            destination.store(pair, rgbToYuv(constants, loadBgr(even), loadBgr(even + 4 * factor)));
        }
        // Unlike in the reduction to BGR32I, the line not just used moves.
        (r % 2 ? lines.lineA : lines.lineB) += lines.pairAdvance;
        destination.finishRow(pairs, lines.dstAdvance);
    }
}

void enlargeToYuv(const Descriptor& d, const YuvLayout& layout) {
    const RgbToYuv constants = rgbToYuvConstants(d);
    LineAddresses lines = lineAddresses(d);
    auto upper = destinationYuv(d, layout);
    const std::int64_t pairs = d.dstWidth / 2;
    for (std::uint32_t r = 0; r < lines.rowCount; ++r) {
        auto lower = upper;
        lower.at += d.dstPitch;
        for (std::int64_t pair = 0; pair < pairs; ++pair) {
            const Source even = lines.lineA + 8 * pair;
            const YuvPair value = rgbToYuv(constants, loadBgr(even), loadBgr(even + 4));
            for (const auto& line : {upper, lower}) {
                line.store(2 * pair, {value.y0, value.y0, value.cb, value.cr});
                line.store(2 * pair + 1, {value.y1, value.y1, value.cb, value.cr});
            }
        }
        lines.lineA += 8 * pairs + lines.pairAdvance;
        upper.finishRow(2 * pairs, 2 * lines.dstAdvance);
    }
}

}  // namespace reference
