// Checks the scalar model against values worked out by hand, so that the judge is judged itself.
#include "reference/model.hpp"

#include "reference/line_addresses.hpp"
#include "reference/rgb_to_yuv.hpp"
#include "reference/yuv_to_rgb.hpp"
#include "reference/yuv_to_yuv.hpp"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <vector>

using namespace reference;

namespace {

using Bytes = std::vector<std::uint8_t>;
Bytes operator+(Bytes a, const Bytes& b) { return a.insert(a.end(), b.begin(), b.end()), a; }
Bytes operator*(int times, const Bytes& bytes) {
    return times ? bytes + (times - 1) * bytes : Bytes{};
}

Descriptor frame(unsigned width, unsigned height, int from, int to, bool full = false,
                 bool clamp = false) {
    Descriptor d{};
    d.srcHeight = d.dstHeight = height, d.dstWidth = width;
    d.srcColorSpace = from, d.dstColorSpace = to;
    d.fullRange = full, d.clampStudio = clamp;
    d.alphaValue = 100;
    return d;
}

// Converts with alpha 0, 1, 2, ... to `offset` in an aligned buffer and expects the bytes there and
// untouched ones behind them; gives the second plane's start.
Bytes expect(const char* name, Descriptor d, const Bytes& source, const Bytes& expected,
             int pitch = 16, std::size_t offset = 0) {
    alignas(64) std::array<std::uint8_t, 512> from{}, alpha{}, to{}, toAlpha{};
    std::copy(source.begin(), source.end(), from.begin());
    std::iota(alpha.begin(), alpha.end(), std::uint8_t{0});
    to.fill(0xCD), toAlpha.fill(0xCD);
    d.srcData = from.data(), d.srcPlane2Data = alpha.data();
    d.dstData = to.data() + offset, d.dstPlane2Data = toAlpha.data();
    d.srcPitch = d.dstPitch = pitch;
    EXPECT_TRUE(convert(name, d)) << name;
    const Bytes rest(to.size() - offset - expected.size(), 0xCD);
    EXPECT_EQ(Bytes(to.data() + offset, to.data() + to.size()), expected + rest) << name;
    return {toAlpha.data(), toAlpha.data() + 5};
}

TEST(Model, YuvToRgb) {
    const auto odd = [](int code, bool full, int y, int cb, int cr) {
        return yuvToRgb(yuvToRgbConstants(frame(0, 0, 1 - code, code, full)), y, cb, cr,
                        LumaWidth::full);
    };
    EXPECT_EQ(odd(1, false, 128, 64, 192), (Bgr{1, 103, 233}));
    EXPECT_EQ(odd(2, false, 128, 64, 192), (Bgr{0, 110, 245}));
    EXPECT_EQ(odd(1, true, 200, 90, 240), (Bgr{123, 124, 255}));
    EXPECT_EQ(odd(1, false, 235, 255, 0).r, 51);
    EXPECT_EQ(odd(0, false, 235, 255, 0).r, 25);
    const Bytes white{255, 255, 255}, black{0, 0, 0};
    expect("UYVY16I_BGR24I", frame(2, 1, 1, 1), {128, 10, 128, 10}, white + black);
    expect("UYVY16I_BGR24I", frame(2, 1, 1, 1, false, true), {128, 10, 128, 10}, 2 * black);
    expect("UVYY16I_BGR24I", frame(3, 1, 1, 1), {128, 128, 235, 16}, white + black);
    expect("Y8PUV8I_BGR24I", frame(2, 2, 1, 1), Bytes{235, 16, 16, 235} + 4 * Bytes{128},
           white + 2 * black + white, 2);
}

TEST(Model, FourthBytes) {
    EXPECT_EQ(blockAlpha(300), 255);
    EXPECT_EQ(blockAlpha(65535), 0);
    for (const int value : {0, 1, 127, 128, 255, 300})
        EXPECT_EQ(pairAlpha(value, 1), value == 1 || value == 127 || value == 300 ? 255 : 0);
    const auto whites = [](const Bytes& fourths) {
        Bytes all;
        for (const std::uint8_t fourth : fourths)
            all = all + Bytes{255, 255, 255, fourth};
        return all;
    };
    const Bytes uyvy = 40 * Bytes{128, 235}, yuyv = 40 * Bytes{235, 128}, pair{0, 255};
    expect("UYVY16I_BGR32I", frame(8, 1, 1, 1), uyvy, whites(8 * Bytes{100}), 32);
    expect("YUYV16I_BGR32I", frame(8, 1, 1, 1), yuyv, whites(8 * Bytes{100}), 32);
    expect("UYVY16I_BGR32I", frame(8, 1, 1, 1), uyvy, whites(4 * pair));
    expect("YUYV16I_BGR32I", frame(8, 1, 1, 1), yuyv, whites(4 * pair), 48);
    // One pair, two blocks, one pair; the second row begins on a boundary.
    Descriptor d = frame(20, 2, 1, 1);
    d.srcPlane2RowGap = 4, d.dstRowGap = 8;
    const Bytes gap = 8 * Bytes{0xCD}, alpha{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const Bytes next{20, 21, 22, 23, 24, 25, 26, 27, 28, 29,
                     30, 31, 32, 33, 34, 35, 36, 37, 38, 39};
    expect("YUYV16I_BGR32I", d, yuyv,
           whites(pair + 16 * Bytes{100} + pair) + gap + whites(16 * Bytes{100} + 2 * pair), 32, 8);
    expect("UYVY16IA8P_BGR32I", d, uyvy,
           whites(Bytes{0, 1} + alpha + Bytes{18, 19}) + gap + whites(next), 32, 8);
}

// Pixels of luma 123, 16, Cb 91 of the first one and Cr 128 of the second, then one left over.
const Bytes bgr32 = {50, 100, 200, 7, 0, 0, 0, 8, 1, 1, 1, 9};

TEST(Model, RgbToYuv) {
    const auto both = [](int code, bool full, bool clamp, const Bgr& pixel) {
        const Descriptor d = frame(0, 0, 1 - code, code, full, clamp);
        return rgbToYuv(rgbToYuvConstants(d), pixel, pixel);
    };
    const auto sum = [](const RgbWeights& weights) { return weights.r + weights.g + weights.b; };
    for (const int code : {0, 1}) {
        const RgbToYuv studio = rgbToYuvConstants(frame(0, 0, 0, code));
        EXPECT_EQ(sum(studio.y), code ? 28141 : 28142);
        EXPECT_EQ(sum(rgbToYuvConstants(frame(0, 0, 0, code, true)).y), 32768);
        EXPECT_EQ(sum(studio.cb), 0);
        EXPECT_EQ(sum(studio.cr), code ? 1 : -1);
        EXPECT_EQ(both(code, true, true, {0, 0, 0}).y0, 16);
        EXPECT_EQ(both(code, true, true, {255, 255, 255}).y0, 235);
    }
    EXPECT_EQ(both(1, false, false, {50, 100, 200}), (YuvPair{123, 123, 91, 175}));
    EXPECT_EQ(both(2, false, false, {50, 100, 200}), (YuvPair{117, 117, 96, 174}));
    EXPECT_EQ(both(1, true, false, {50, 100, 200}), (YuvPair{124, 124, 91, 175}));
    Descriptor d = frame(3, 2, 1, 1);
    d.srcRowGap = -8;
    expect("BGR32I_UYVY16I", d, bgr32, 2 * Bytes{91, 123, 128, 16});
    expect("BGR32I_YUYV16I", d, bgr32, 2 * Bytes{123, 91, 16, 128});
    EXPECT_EQ(expect("BGR32I_UVYY16IA8P", d, bgr32, 2 * Bytes{91, 128, 123, 16}),
              (Bytes{7, 8, 7, 8, 0xCD}));
    expect("BGR32I_Y8PUV8I", d, bgr32, 2 * Bytes{123, 16} + 4 * Bytes{0xCD} + 2 * Bytes{91, 128},
           4);
    d = frame(16, 1, 1, 1);
    d.streamingStores = 2;
    const Bytes bgr24 = 8 * Bytes{50, 100, 200, 0, 0, 0};
    expect("BGR24I_UVYY16I", d, bgr24, 2 * (2 * Bytes{123, 0, 16, 0} + 4 * Bytes{16, 0}));
    expect("BGR24I_UVYY16I", d, bgr24, 8 * Bytes{91, 128, 123, 16}, 8);
}

TEST(Model, Modes) {
    Bytes pixels, pairs;  // of value 0, 1, 2, ...; odd pairs have chroma that is not to be used
    for (std::uint8_t v = 0; v < 120; ++v) {
        const auto chroma = static_cast<std::uint8_t>(v % 2 ? 7 : 128);
        pixels = pixels + Bytes{v, v, v, 0}, pairs = pairs + Bytes{chroma, v, chroma, 255};
    }
    // The second line is 4 x 16 bytes on, both lines advance by 8 + 2 x 4 x 16 bytes.
    Descriptor d = frame(2, 3, 1, 1, true);
    d.srcHeight = 1, d.kernelMode = d.lineMode = 2, d.srcRowGap = 8;
    const auto row = [](std::uint8_t a, std::uint8_t b) { return Bytes{a, a, a, 0, b, b, b, 255}; };
    for (const char* name : {"UYVY16I_BGR32I", "Y8PUV8I_BGR32I"})
        expect(name, d, pairs, row(0, 2) + row(16, 18) + row(34, 36));
    expect("BGR32I_UYVY16I", d, pixels, {128, 0, 128, 4, 128, 50, 128, 54, 128, 34, 128, 38});
    d.srcLinePairAdjacent = 1;
    expect("UYVY16I_BGR32I", d, pairs, row(0, 2) + row(4, 6) + row(34, 36));
    d.srcLinePairAdjacent = 0, d.srcData = &pixels[400], d.srcPitch = 100, d.srcRowGap = -20;
    const LineAddresses upwards = lineAddresses(d);
    EXPECT_EQ(&upwards.lineB[0], &pixels[0]);
    EXPECT_EQ(upwards.pairAdvance, -820);
    d = frame(4, 1, 1, 1, true);
    d.kernelMode = 1;
    expect("UYVY16I_BGR32I", d, pairs, row(0, 1) + row(2, 3));
    expect("BGR32I_UYVY16I", d, pixels, {128, 0, 128, 2, 128, 4, 128, 6});
    d.kernelMode = -1;
    expect("BGR32I_UYVY16I", d, pixels, {128, 0, 128, 1, 128, 2, 128, 3});
    d.kernelMode = 3, d.srcHeight = 2, d.srcRowGap = -8, d.dstRowGap = 8;
    const Bytes first{128, 0, 128, 0, 128, 1, 128, 1, 128, 2, 128, 2, 128, 3, 128, 3};
    const Bytes second{128, 2, 128, 2, 128, 3, 128, 3, 128, 4, 128, 4, 128, 5, 128, 5};
    expect("BGR32I_UYVY16I", d, pixels, 2 * first + 2 * second);
    d.kernelMode = 4;
    EXPECT_ANY_THROW(convert("BGR32I_UYVY16I", d));
}

TEST(Model, YuvToYuv) {
    const YuvMatrix m = yuvMatrix(frame(0, 0, 0, 1)), to709 = yuvMatrix(frame(0, 0, 1, 0));
    const YuvPair grey{100, 100, 128, 128}, c{100, 100, 192, 64}, single{93, 93, 198, 59};
    EXPECT_EQ(convertGroup(m, grey), grey);
    EXPECT_EQ(convertGroup(m, c), single);
    EXPECT_EQ(convertGroup(yuvMatrix(frame(0, 0, 2, 5)), c), single);
    const YuvBlock halves = convertBlock(m, {grey, grey, grey, grey, c, c, c, c});
    EXPECT_EQ(halves[0], (YuvPair{94, 94, 128, 128}));
    EXPECT_EQ(halves[4], (YuvPair{94, 94, 198, 60}));
    EXPECT_EQ(convertGroup(to709, {200, 20, 255, 255}), (YuvPair{158, 0, 255, 255}));
    EXPECT_EQ(convertGroup(to709, {200, 230, 0, 0}), (YuvPair{241, 255, 255, 255}));
    EXPECT_EQ(convertGroup(yuvMatrix(frame(0, 0, 1, 0, false, true)), {200, 0, 0, 0}),
              (YuvPair{235, 57, 255, 255}));
    const Bytes source = 32 * Bytes{1, 2, 3, 4}, out{198, 93, 59, 93}, behind{198, 94, 59, 94};
    const Descriptor equal = frame(32, 1, 1, 1, false, true);
    expect("UYVY16I_UYVY16I", equal, source, 16 * Bytes{1, 2, 3, 4});
    expect("YUYV16I_UYVY16I", equal, source, 16 * Bytes{2, 1, 4, 3});
    expect("UVYY16I_UYVY16I", equal, source, 16 * Bytes{1, 3, 2, 4});
    expect("UYVY16I_UVYY16I", frame(30, 1, 1, 1), source, 15 * Bytes{1, 2, 3, 4});
    expect("UYVY16I_Y8PUV8I", frame(32, 2, 1, 1), source, 32 * Bytes{2, 4} + 32 * Bytes{1, 3}, 32);
    expect("YUYV16I_UYVY16I", frame(2, 1, 0, 1), {100, 192, 100, 64}, out);
    Descriptor d = frame(16, 2, 0, 1);
    d.dstRowGap = 8;
    const Bytes chroma = 16 * Bytes{192, 100, 64, 100}, gap = 8 * Bytes{0xCD};
    for (const char* name : {"UYVY16I_UVYY16I", "UYVY16I_Y8PUV8I", "UVYY16I_UYVY16I"}) {
        expect(name, frame(15, 1, 0, 1), chroma, 7 * out);
        expect(name, frame(22, 1, 0, 1), chroma, 6 * out + 4 * behind + out, 16, 8);
        expect(name, d, chroma, 4 * out + 4 * behind + gap + 4 * out + 4 * behind);
        expect(name, d, chroma, 4 * out + 4 * behind + gap + 8 * out, 8);
    }
}

TEST(Model, AlphaAndRepacking) {
    Descriptor d = frame(3, 1, 1, 1);
    d.alphaValue = 300;
    const Bytes bgr24{1, 2, 3, 4, 5, 6, 7, 8, 9};
    expect("BGR24I_BGR32I", d, bgr24, {1, 2, 3, 44, 4, 5, 6, 44, 7, 8, 9, 44});
    expect("BGR32I_BGR32I", d, bgr32, bgr32);
    expect("BGR32I_BGR24I", d, bgr32, {50, 100, 200, 0, 0, 0, 1, 1, 1});
    EXPECT_EQ(expect("BGR32I_BGR24IA8P", d, bgr32, {50, 100, 200, 0, 0, 0, 1, 1, 1}),
              (Bytes{7, 8, 9, 0xCD, 0xCD}));
    expect("BGR32I_A8P", d, bgr32, {7, 8, 9});
    expect("BGR24IA8P_BGR32I", d, bgr24, {1, 2, 3, 0, 4, 5, 6, 1, 7, 8, 9, 2});
    expect("UYVY16IA8P_A8P", d, {}, {0, 1, 2});
    EXPECT_EQ(expect("BGR24IA8P_BGR24IA8P", d, bgr24, bgr24), (Bytes{0, 1, 2, 0xCD, 0xCD}));
    d.alphaValue = 0x1FF;
    EXPECT_EQ(expect("UYVY16I_UYVY16IA8P", d, {1, 2, 3, 4}, {1, 2, 3, 4}),
              (Bytes{255, 255, 255, 0xCD, 0xCD}));
    EXPECT_FALSE(convert("Y8PUV8IA8P_BGR24IA8P", d));
}

}  // namespace
