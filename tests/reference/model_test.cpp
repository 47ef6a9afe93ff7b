// Checks the scalar model against values worked out by hand, so that the judge itself is judged.
#include "reference/model.hpp"

#include "reference/yuv_to_rgb.hpp"

#include <gtest/gtest.h>

#include <vector>

using namespace reference;

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Setting {
    int matrix = 1;
    bool fullRange = false, clamp = false;
};

Descriptor settings(const Setting& s) {
    Descriptor d{};
    d.srcColorSpace = d.dstColorSpace = s.matrix;
    d.fullRange = s.fullRange;
    d.clampStudio = s.clamp;
    return d;
}

TEST(Model, YuvToRgbValues) {
    const auto odd = [](Setting s, int y, int cb, int cr) {
        return yuvToRgb(yuvToRgbConstants(settings(s)), y, cb, cr, LumaWidth::full);
    };
    const Bgr black{0, 0, 0}, white{255, 255, 255};
    EXPECT_EQ(odd({}, 235, 128, 128), white);
    EXPECT_EQ(odd({}, 16, 128, 128), black);
    EXPECT_EQ(odd({}, 128, 64, 192), (Bgr{1, 103, 233}));
    EXPECT_EQ(odd({0}, 128, 64, 192), (Bgr{0, 110, 245}));
    EXPECT_EQ(odd({2}, 128, 64, 192), (Bgr{0, 110, 245}));
    EXPECT_EQ(odd({1, true}, 200, 90, 240), (Bgr{123, 124, 255}));
    EXPECT_EQ(odd({1, true}, 255, 128, 128), white);
    EXPECT_EQ(odd({1, true}, 0, 128, 128), black);
    EXPECT_EQ(odd({1}, 235, 255, 0).r, 51);
    EXPECT_EQ(odd({0}, 235, 255, 0).r, 25);
    EXPECT_EQ(odd({}, 10, 128, 128), black);
    for (const bool clamp : {false, true})
        EXPECT_EQ(yuvToRgb(yuvToRgbConstants(settings({1, false, clamp})), 10, 128, 128,
                           LumaWidth::lowByte),
                  clamp ? black : white);
}

TEST(Model, FourthBytes) {
    EXPECT_EQ(blockAlpha(255), 255);
    EXPECT_EQ(blockAlpha(300), 255);
    EXPECT_EQ(blockAlpha(65535), 0);
    for (const int value : {0, 1, 100, 127, 128, 255, 300}) {
        EXPECT_EQ(pairAlpha(value, 0), 0);
        EXPECT_EQ(pairAlpha(value, 1), (value >= 1 && value <= 127) || value == 300 ? 255 : 0);
    }
}

}  // namespace
