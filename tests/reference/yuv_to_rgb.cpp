// YCbCr to BGR of the scalar model.
#include "reference/yuv_to_rgb.hpp"

#include "reference/line_addresses.hpp"

namespace reference {

YuvToRgb yuvToRgbConstants(const Descriptor& d) {
    const int offset = d.fullRange ? 0 : 16;
    const int lumaGain = d.fullRange ? 16384 : 19073;
    if (d.dstColorSpace == 1)
        return {offset, lumaGain, 16525, -3209, -6660, 13075, lumaBounds(d)};
    return {offset, lumaGain, 17305, -1747, -4366, 14686, lumaBounds(d)};
}

Bgr yuvToRgb(const YuvToRgb& c, int y, int cb, int cr, LumaWidth width) {
    const int difference = c.bounds.clamp(y) - c.offset;
    const int luma = width == LumaWidth::lowByte ? difference & 0xFF : difference;
    const int u = 2 * (cb - 128);
    const int v = 2 * (cr - 128);
    const int rounded = luma * c.lumaGain + 8192;
    const auto narrow = [](int sum) { return saturate8(saturate16(sum >> 14)); };
    return {narrow(rounded + u * c.blueCb), narrow(rounded + u * c.greenCb + v * c.greenCr),
            narrow(rounded + v * c.redCr)};
}

std::uint8_t blockAlpha(std::int32_t alphaValue) { return saturate8(wrap16(alphaValue)); }

std::uint8_t pairAlpha(std::int32_t alphaValue, int odd) {
    return odd ? saturate8(wrap16(static_cast<std::uint8_t>(alphaValue) * 256)) : 0;
}

// The split into pairs and blocks shows in fourth bytes only. The even pixel of a pair loses all
// but the low byte of its luma difference.
void yuvToBgr(const Descriptor& d, const YuvLayout& layout, FourthByte fourth,
              bool (*fast)(const Descriptor&)) {
    const YuvToRgb constants = yuvToRgbConstants(d);
    const int bytes = fourth == FourthByte::none ? 3 : 4;
    auto source = sourceYuv(d, layout);
    Source alphaRow(d.srcPlane2Data);
    Destination row(d.dstData);
    for (std::uint32_t r = 0; r < d.srcHeight; ++r) {
        const Split split =
            fast(d) ? splitFast(d.dstWidth, 8) : splitGeneral(d.dstWidth, 8, row, 8);
        for (std::int64_t x = 0; x < 2 * split.pairs(); ++x) {
            const int odd = x % 2;
            const bool inBlock = split.inBlock(x / 2);
            const YuvPair pair = source.load(x / 2);
            const Destination pixel = row + bytes * x;
            storeBgr(pixel, yuvToRgb(constants, odd ? pair.y1 : pair.y0, pair.cb, pair.cr,
                                     odd ? LumaWidth::full : LumaWidth::lowByte));
            if (fourth == FourthByte::plane)
                pixel[3] = alphaRow[inBlock ? x - 2 * split.head : x];
            else if (fourth == FourthByte::constant)
                pixel[3] = inBlock ? blockAlpha(d.alphaValue) : pairAlpha(d.alphaValue, odd);
        }
        source.finishRow(split.pairs(), d.srcRowGap);
        row += 2 * bytes * split.pairs() + d.dstRowGap;
        // Pairs converted singly do not move the alpha pointer.
        alphaRow += 2 * split.body + d.srcPlane2RowGap;
    }
}

// Pairs and blocks give the same bytes here.
void reduceToBgr32(const Descriptor& d, int factor) {
    const YuvToRgb constants = yuvToRgbConstants(d);
    LineAddresses lines = lineAddresses(d);
    const std::int64_t pairs = d.dstWidth / 2;
    for (std::uint32_t r = 0; r < lines.rowCount; ++r) {
        Source& line = r % 2 ? lines.lineB : lines.lineA;
        for (std::int64_t x = 0; x < 2 * pairs; ++x) {
            const Source luma = line + 4 * (x * factor / 2);
            const Source chroma = line + 4 * (x / 2 * factor);
            const Destination pixel = lines.dstLine + 4 * x;
            storeBgr(pixel, yuvToRgb(constants, luma[1], chroma[0], chroma[2], LumaWidth::full));
            pixel[3] = pairAlpha(d.alphaValue, x % 2);
        }
        line += lines.pairAdvance;
        lines.dstLine += 8 * pairs + lines.dstAdvance;
    }
}

}  // namespace reference
