// Checks the model of the checked library against values worked out by hand, so that the judge is
// judged itself.
#include "reference/picture.hpp"

#include <gtest/gtest.h>

#include <cmath>

using namespace orva;
using namespace reference;

namespace {

using Bytes = std::vector<std::uint8_t>;

// Writes samples and reads them back out of the bytes; gives the bytes of the planes.
std::array<Bytes, planeCount> written(Format format, std::uint32_t width, const Row<int>& samples) {
    std::array<Bytes, planeCount> planes;
    RowStarts<std::byte> to;
    RowStarts<const std::byte> from;
    for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        planes[p].assign(rowBytes(format, p, width), 0xCD);
        from[p] = to[p] = reinterpret_cast<std::byte*>(planes[p].data());
    }
    write(format, width, samples, to);
    Row<int> again;
    read(format, width, from, again);
    EXPECT_EQ(again, samples);
    return planes;
}

TEST(PictureModel, PlacesSamples) {
    using Planes = std::array<Bytes, planeCount>;
    const Row<int> odd = {{{1, 2, 3}, {10, 11}, {20, 21}, {}}};
    EXPECT_EQ(written(Format::UYVY16I, 3, odd), (Planes{{{10, 1, 20, 2, 11, 3, 21, 3}}}));
    EXPECT_EQ(written(Format::YUYV16I, 3, odd), (Planes{{{1, 10, 2, 20, 3, 11, 3, 21}}}));
    EXPECT_EQ(written(Format::UVYY16I, 3, odd), (Planes{{{10, 20, 1, 2, 11, 21, 3, 3}}}));
    EXPECT_EQ(written(Format::Y8PUV8I, 3, odd), (Planes{{{1, 2, 3, 3}, {10, 20, 11, 21}}}));
    EXPECT_EQ(written(Format::Y8PU8PV8P, 3, odd), (Planes{{{1, 2, 3, 3}, {10, 11}, {20, 21}}}));
    // Words of 769 << 6, 1 << 6, 2 << 6, and 1023.
    EXPECT_EQ(written(Format::Y10PUV10I, 2, {{{769, 1}, {2}, {1023}, {}}}),
              (Planes{{{0x40, 0xC0, 0x40, 0}, {0x80, 0, 0xC0, 0xFF}}}));
    EXPECT_EQ(written(Format::Y10PU10PV10P, 2, {{{769, 1}, {2}, {1023}, {}}}),
              (Planes{{{1, 3, 1, 0}, {2, 0}, {255, 3}}}));
    // 1 | 2 << 10 | 3 << 20, then 4 | 5 << 10 | 6 << 20, and so on.
    EXPECT_EQ(written(Format::V210, 6, {{{2, 4, 6, 8, 10, 12}, {1, 5, 9}, {3, 7, 11}, {}}}),
              (Planes{{{1, 0x08, 0x30, 0, 4, 0x14, 0x60, 0,  //
                        7, 0x20, 0x90, 0, 10, 0x2C, 0xC0, 0}}}));
    EXPECT_EQ(written(Format::V210, 1, {{{1023}, {1}, {1023}, {}}}),
              (Planes{{{1, 0xFC, 0xFF, 0x3F, 0xFF, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}}));
    const Row<int> pixel = {{{1}, {2}, {3}, {4}}}, opaque = {{{1}, {2}, {3}, {}}};
    EXPECT_EQ(written(Format::BGR32I, 1, pixel), (Planes{{{3, 2, 1, 4}}}));
    EXPECT_EQ(written(Format::RGB32I, 1, pixel), (Planes{{{1, 2, 3, 4}}}));
    EXPECT_EQ(written(Format::ARGB32I, 1, pixel), (Planes{{{4, 1, 2, 3}}}));
    EXPECT_EQ(written(Format::ABGR32I, 1, pixel), (Planes{{{4, 3, 2, 1}}}));
    EXPECT_EQ(written(Format::BGR24I, 1, opaque), (Planes{{{3, 2, 1}}}));
    EXPECT_EQ(written(Format::RGB24IA8P, 1, pixel), (Planes{{{1, 2, 3}, {}, {}, {4}}}));
}

// The colour bars of the standards, and what full-range chroma spans.
TEST(PictureModel, KnowsTheStandards) {
    const auto expectNear = [](const Colour& colour, double first, double second, double third) {
        EXPECT_NEAR(colour[0], first, 0.005);
        EXPECT_NEAR(colour[1], second, 0.005);
        EXPECT_NEAR(colour[2], third, 0.005);
    };
    const Colour red = {255, 0, 0}, blue = {0, 0, 255}, white = {255, 255, 255};
    expectNear(ycbcrOf(white, Matrix::bt2020, Range::studio, 10), 940, 512, 512);
    expectNear(ycbcrOf(red, Matrix::bt601, Range::studio, 8), 81.48, 90.20, 240);
    expectNear(ycbcrOf(red, Matrix::bt709, Range::studio, 10), 250.24, 409.34, 960);
    expectNear(ycbcrOf(blue, Matrix::bt709, Range::full, 8), 18.41, 255.5, 116.31);
    expectNear(ycbcrOf(blue, Matrix::bt2020, Range::studio, 8), 28.99, 240, 118.99);
    expectNear(rgbOf({16, 128, 128}, Matrix::bt709, Range::studio, 8), 0, 0, 0);
    expectNear(rgbOf({126, 128, 228}, Matrix::bt601, Range::studio, 8), 287.68, 46.79, 128.08);
    expectNear(rgbOf({512, 512, 512}, Matrix::bt601, Range::full, 10), 127.62, 127.62, 127.62);
}

TEST(PictureModel, InterpolatesAndFiltersChroma) {
    Row<double> result;
    Options options = {.dstMatrix = Matrix::bt601, .srcRange = Range::full};
    const Row<int> grey = {{{100, 100, 100, 100, 100}, {128, 188, 128}, {128, 128, 128}, {}}};
    const auto blues = [&] {
        convert(grey, Format::UYVY16I, Format::BGR24I, options, 5, result);
        std::vector<int> differences;  // of blue and luma, per 55.668 that 30 of Cb are
        for (const double blue : result[crOrBlue]) {
            differences.push_back(int(std::lround((blue - 100) / 55.668)));
        }
        return differences;
    };
    EXPECT_EQ(blues(), (std::vector<int>{0, 1, 2, 1, 0}));
    options.chroma = Chroma::nearest;
    EXPECT_EQ(blues(), (std::vector<int>{0, 0, 2, 2, 0}));

    // Only green in pixels 1 and 4: a quarter of pixel 0's, of pixel 2's, and three of pixel 4's.
    const Row<int> pixels = {{{0, 0, 0, 0, 0}, {0, 240, 0, 0, 240}, {0, 0, 0, 0, 0}, {}}};
    const auto cbs = [&] {
        convert(pixels, Format::RGB24I, Format::V210, options, 5, result);
        std::vector<int> quarters;  // green of 240 lowers Cb by 279.34 of 896
        for (const double cb : result[cbOrGreen]) {
            quarters.push_back(int(std::lround((512 - cb) / (279.34 / 4))));
        }
        return quarters;
    };
    EXPECT_EQ(cbs(), (std::vector<int>{0, 0, 4}));
    options.chroma = Chroma::cosited;
    EXPECT_EQ(cbs(), (std::vector<int>{1, 1, 3}));
}

TEST(PictureModel, BoundsWhatComesOut) {
    Row<double> result;
    const Row<int> extremes = {{{0, 255}, {0}, {255}, {}}};
    const Options same, inFull = {.srcRange = Range::full, .dstRange = Range::full};
    convert(extremes, Format::UYVY16I, Format::V210, same, 2, result);
    EXPECT_NEAR(result[lumaOrRed][0], 4, 1e-9);
    EXPECT_NEAR(result[lumaOrRed][1], 1019, 1e-9);
    convert(extremes, Format::UYVY16I, Format::Y10PUV10I, inFull, 2, result);
    EXPECT_NEAR(result[lumaOrRed][1], 1023, 1e-9);
    EXPECT_EQ(result[cbOrGreen][0], 0);  // of -1.51
    convert(extremes, Format::UYVY16I, Format::RGB32I, same, 2, result);
    EXPECT_NEAR(result[lumaOrRed][0], 209.05, 0.005);
    EXPECT_EQ(result[lumaOrRed][1], 255);
    EXPECT_EQ(result[crOrBlue][0], 0);
    EXPECT_EQ(result[alphaComponent], (std::vector<double>{255, 255}));
}

}  // namespace
