// Every colour of 8 bits there is, with every matrix, range and table of kernels.
#include "reference/picture.hpp"
#include "support/picture.hpp"
#include "support/tables.hpp"

#include <algorithm>
#include <cmath>
#include <functional>

using namespace orva;
using namespace test;

namespace {

// For one value of the first sample: all of the second in rows, all of the third in a row's pixels,
// or in its pairs of pixels if these are to have two colours.
struct Exhaustive {
    Exhaustive(Format from, std::uint32_t width, Format to)
        : source(Image::create(from, width, 256).value()),
          made(Image::create(to, width, 256).value()) {}

    // Converts with every table, and has the rows of the first one judged.
    template <class JudgeRow> void run(const Options& options, JudgeRow judgeRow) {
        std::vector<std::byte> first;
        withEveryPictureTable([&] {
            // Another value for each call, so that no table can pass by another's bytes.
            untouched = std::byte(std::to_integer<int>(untouched) + 1);
            std::ranges::fill(made.view().main.bytes, untouched);
            ASSERT_TRUE(convert(source.view(), made.view(), options));
            const auto bytes = made.view().main.bytes;
            if (first.empty()) {
                first.assign(bytes.begin(), bytes.end());
                for (std::uint32_t y = 0; y < 256; ++y) {
                    judgeRow(int(y), rowOf(made.view(), y)[mainPlane]);
                }
            } else {
                EXPECT_TRUE(std::ranges::equal(bytes, first)) << "tables differ";
            }
        });
    }

    Image source, made;
    std::byte untouched{};
};

// The largest error of 256 samples whose real values go from the first to the last in equal steps.
double largestError(const std::byte* samples, std::size_t step, double firstReal, double lastReal) {
    double largest = 0;
    for (int i = 0; i < 256; ++i) {
        const double real = std::clamp(firstReal + (lastReal - firstReal) / 255 * i, 0.0, 255.0);
        largest = std::max(largest, std::abs(double(samples[std::size_t(i) * step]) - real));
    }
    return largest;
}

void withEverySetting(const std::function<double(const Options&)>& errorWith) {
    for (const Matrix matrix : {Matrix::bt601, Matrix::bt709, Matrix::bt2020}) {
        for (const Range range : {Range::studio, Range::full}) {
            const double error = errorWith({.srcMatrix = matrix,
                                            .dstMatrix = matrix,
                                            .srcRange = range,
                                            .dstRange = range,
                                            .chroma = Chroma::nearest});
            printf("[  error   ] matrix %d, range %d: %.4f\n", int(matrix), int(range), error);
            EXPECT_LE(error, promisedError);
        }
    }
}

// Each luma in a pixel, with each chroma pair.
TEST(CheckedExhaustive, YCbCrToRgb) {
    Exhaustive colours(Format::UYVY16I, 256, Format::BGR32I);
    withEverySetting([&](const Options& options) {
        double largest = 0;
        for (int cb = 0; cb < 256; ++cb) {
            for (std::uint32_t cr = 0; cr < 256; ++cr) {
                std::byte* at = rowOf(colours.source.view(), cr)[mainPlane];
                for (int luma = 0; luma < 256; luma += 2) {
                    for (const int sample : {cb, luma, int(cr), luma + 1}) {
                        *at++ = std::byte(sample);
                    }
                }
            }
            colours.run(options, [&](int cr, const std::byte* row) {
                const auto real = [&](int luma) {
                    return reference::rgbOf({double(luma), double(cb), double(cr)},
                                            options.srcMatrix, options.srcRange, 8);
                };
                const auto black = real(0), white = real(255);
                for (std::size_t c = 0; c < 3; ++c) {
                    largest = std::max(largest, largestError(row + 2 - c, 4, black[c], white[c]));
                }
            });
        }
        return largest;
    });
}

// Each colour in the even pixel of a pair, which chroma is made of, and in the odd one.
TEST(CheckedExhaustive, RgbToYCbCr) {
    Exhaustive colours(Format::BGR32I, 512, Format::UYVY16I);
    withEverySetting([&](const Options& options) {
        double largest = 0;
        for (int red = 0; red < 256; ++red) {
            for (std::uint32_t green = 0; green < 256; ++green) {
                std::byte* at = rowOf(colours.source.view(), green)[mainPlane];
                for (int blue = 0; blue < 256; ++blue) {
                    for (const int sample :
                         {blue, int(green), red, 0, 255 - blue, int(green), red, 255}) {
                        *at++ = std::byte(sample);
                    }
                }
            }
            colours.run(options, [&](int green, const std::byte* row) {
                const auto real = [&](int blue) {
                    return reference::ycbcrOf({double(red), double(green), double(blue)},
                                              options.dstMatrix, options.dstRange, 8);
                };
                const auto none = real(0), all = real(255);
                largest = std::max({largest, largestError(row + 1, 4, none[0], all[0]),
                                    largestError(row + 3, 4, all[0], none[0]),
                                    largestError(row, 4, none[1], all[1]),
                                    largestError(row + 2, 4, none[2], all[2])});
            });
        }
        return largest;
    });
}

}  // namespace
