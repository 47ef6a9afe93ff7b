// The checked interface: what it refuses, and that whatever it accepts becomes the picture that the
// pair's fast kernel would make, wherever the images lie and however their rows are split.
#include "support/data.hpp"
#include "support/picture.hpp"
#include "support/tables.hpp"

#include <orva/convert.hpp>
#include <orva/orva.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>

using namespace orva;
using namespace test;

namespace {

// Where an image's planes lie: first addresses modulo 64, bytes between rows, direction.
struct Placement {
    std::array<std::uint32_t, 2> offset = {};  // of the colour and the alpha plane
    std::array<std::uint32_t, 2> gap = {};
    bool bottomUp = false;
};

// An image whose spans are as short as they may be. Canvases of the same shape lie alike.
class Canvas {
public:
    Canvas(Format format, std::uint32_t width, std::uint32_t height, const Placement& placement)
        : image{format, width, height, {}, {}, {}} {
        const auto bytes = bytesPerPixel(format);
        for (const std::size_t which : {0, 1}) {
            const std::uint32_t rowBytes = width * bytes[which == 0 ? 0 : 2];
            if (rowBytes == 0) {
                continue;
            }
            // A chroma plane is behind luma, before it if rows run upwards.
            const bool chroma = which == 0 && bytes[1] > 0;
            const std::size_t pitch = rowBytes + placement.gap[which];
            const std::size_t extent = pitch * (height - 1) + rowBytes;
            const std::size_t offset = placement.offset[which];
            planes[which].resize(offset + (chroma ? pitch * height : 0) + extent);
            const std::span memory = std::span(planes[which]).subspan(offset);
            const auto signedPitch = static_cast<std::ptrdiff_t>(pitch);
            Plane plane{memory.first(extent), placement.bottomUp ? -signedPitch : signedPitch};
            if (chroma) {
                image.chroma = {memory.last(extent), plane.pitch};
                if (placement.bottomUp) {
                    std::swap(plane, image.chroma);
                }
            }
            (which == 0 ? image.main : image.alpha) = plane;
        }
    }

    const ImageView& view() const { return image; }

    // Of colour and of alpha.
    std::array<Memory, 2> planes;

private:
    ImageView image;
};

// The alignment that the interface asks of destination rows.
std::uint32_t neededAlignment(Format source, Format destination, bool matrices) {
    if (isYcbcr(source) && destination == Format::BGR32I) {
        return 8;
    }
    if (isYcbcr(source) && formatInfo(destination).colour == Format::BGR24I) {
        return 2;
    }
    return matrices ? 4 : 1;
}

Placement randomPlacement(Random& random) {
    constexpr std::uint32_t offsets[] = {0, 0, 0, 16, 8, 4, 2, 1, 24, 52};
    constexpr std::uint32_t gaps[] = {0, 0, 16, 64, 8, 4, 2, 1, 96};
    return {.offset = {offsets[pick(random, 10)], offsets[pick(random, 10)]},
            .gap = {gaps[pick(random, 9)], gaps[pick(random, 9)]},
            .bottomUp = pick(random, 3) == 0};
}

std::uint32_t randomWidth(Random& random, bool even) {
    const std::uint32_t kind = pick(random, 40);
    const std::uint32_t width = kind == 0   ? 4096 + pick(random, 40)  // beyond one strip of alpha
                                : kind < 10 ? 8 * (1 + pick(random, 12))
                                            : 1 + pick(random, 100);
    return even ? (width + 1) / 2 * 2 : width;
}

// Converts all rows at once or in ranges, the lowest first.
Result convertInRanges(const ConstImageView& source, const ImageView& destination,
                       const Options& options, std::uint32_t rows) {
    Result result;
    std::uint32_t end = source.height;
    while (result && end > 0) {
        const std::uint32_t first = end > rows ? end - rows : 0;
        result = convert(source, destination, options, {first, end - first});
        end = first;
    }
    return result;
}

void checkOnce(Format from, Format to, Random& random) {
    const std::uint32_t width = randomWidth(random, isYcbcr(from) || isYcbcr(to));
    const std::uint32_t height = 1 + pick(random, 5);
    Options options;
    options.srcMatrix = pick(random, 2) ? Matrix::bt601 : Matrix::bt709;
    options.dstMatrix = pick(random, 3) ? options.srcMatrix : Matrix::bt601;
    options.range = pick(random, 2) ? Range::full : Range::studio;
    options.clampStudio = pick(random, 2) == 0;
    constexpr int alphas[] = {255, 0, 1, 127, 128, 77};
    options.alpha = alphas[pick(random, 6)];
    options.streaming = pick(random, 2) == 0;

    const Placement sourcePlacement = randomPlacement(random);
    const Placement placement = pick(random, 3) ? randomPlacement(random) : sourcePlacement;
    Canvas source(from, width, height, sourcePlacement);
    Canvas actual(to, width, height, placement);
    Canvas expected(to, width, height, placement);
    for (const std::size_t i : {0, 1}) {
        fill(source.planes[i], random);
        fill(actual.planes[i], random);
        std::ranges::copy(actual.planes[i], expected.planes[i].begin());
    }
    const auto pristine = source.planes;

    const bool matrices = changesMatrix(from, to, options);
    const auto named = [](Format format) {
        const Format colour = formatInfo(format).colour;
        return colour == Format::UYVY16I || colour == Format::YUYV16I;
    };
    const std::uint32_t rows = 1 + pick(random, 6);
    const Result result = convertInRanges(source.view(), actual.view(), options, rows);

    SCOPED_TRACE(::testing::Message()
                 << nameOf(from, to) << " " << width << "x" << height << " in ranges of " << rows
                 << ", offsets " << sourcePlacement.offset[0] << " " << sourcePlacement.offset[1]
                 << " " << placement.offset[0] << " " << placement.offset[1] << ", gaps "
                 << sourcePlacement.gap[0] << " " << sourcePlacement.gap[1] << " "
                 << placement.gap[0] << " " << placement.gap[1] << ", bottom-up "
                 << sourcePlacement.bottomUp << placement.bottomUp << ", matrices "
                 << int(options.srcMatrix) << int(options.dstMatrix) << ", alpha " << options.alpha
                 << ", streaming " << options.streaming);
    const std::uint32_t alignment = neededAlignment(from, to, matrices);
    const auto pitch = static_cast<std::uint32_t>(std::abs(actual.view().main.pitch));
    const auto start = reinterpret_cast<std::uintptr_t>(actual.view().main.bytes.data());
    const auto firstRow = start + (placement.bottomUp ? (height - 1) * pitch : 0);
    ErrorCode code = ErrorCode::none;
    if (matrices && !(named(from) && named(to))) {
        code = ErrorCode::wrongLayout;
    } else if (firstRow % alignment != 0 || (height > 1 && pitch % alignment != 0)) {
        code = ErrorCode::misaligned;
    }
    ASSERT_EQ(int(result.code), int(code)) << result.describe();
    ASSERT_EQ(source.planes, pristine);
    if (result) {
        ASSERT_TRUE(makePicture(source.view(), expected.view(), options));
    }
    // What was refused must be as it was.
    for (const std::size_t i : {0, 1}) {
        const auto difference = std::ranges::mismatch(actual.planes[i], expected.planes[i]);
        ASSERT_TRUE(difference.in1 == actual.planes[i].end())
            << (i == 0 ? "colour" : "alpha") << " byte "
            << difference.in1 - actual.planes[i].begin() << " is " << int(*difference.in1)
            << ", not " << int(*difference.in2);
    }
}

class EveryPair : public ::testing::TestWithParam<Conversion> {};

TEST_P(EveryPair, BecomesTheFastKernelsPictureOrIsRefused) {
    test::withEveryTable([] {
        Random random(7);
        for (int i = 0; i < 250 && !HasFatalFailure(); ++i) {
            checkOnce(GetParam().source, GetParam().destination, random);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Checked, EveryPair, ::testing::ValuesIn(conversions()),
                         [](const auto& info) {
                             return nameOf(info.param.source, info.param.destination);
                         });

// A call that is accepted, for mutations to break.
struct Call {
    ConstImageView source;
    ImageView destination;
    Options options;
    RowRange rows;
};

struct Refusal {
    const char* what;
    Format from, to;
    std::function<void(Call&)> mutate;
    ErrorCode code;
    std::string_view field;
};

const Refusal refusals[] = {
    {"no such pair", Format::YUYV16IA8P, Format::BGR32I,
     [](Call& c) { c.source.format = Format::UVYY16IA8P; }, ErrorCode::noSuchConversion,
     "destination.format"},
    {"alpha above a byte", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.options.alpha = 256; },
     ErrorCode::badOption, "options.alpha"},
    {"negative alpha", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.options.alpha = -1; },
     ErrorCode::badOption, "options.alpha"},
    {"no matrix", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.options.srcMatrix = Matrix{9}; },
     ErrorCode::badOption, "options.srcMatrix"},
    {"no range", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.options.range = Range{9}; },
     ErrorCode::badOption, "options.range"},
    {"other width", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.source.width -= 2; },
     ErrorCode::sizeMismatch, "destination.width"},
    {"other height", Format::A8C, Format::A8P, [](Call& c) { c.source.height -= 1; },
     ErrorCode::sizeMismatch, "destination.height"},
    {"odd width", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.source.width = c.destination.width = 31; }, ErrorCode::oddWidth,
     "source.width"},
    {"odd width out of BGR", Format::BGR24I, Format::YUYV16I,
     [](Call& c) { c.source.width = c.destination.width = 31; }, ErrorCode::oddWidth,
     "destination.width"},
    {"row beyond the image", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.rows.first = 5; },
     ErrorCode::badRows, "rows.first"},
    {"no source", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.source.main.bytes = {}; },
     ErrorCode::nullPlane, "source.main"},
    {"no destination", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.destination.main.bytes = {}; }, ErrorCode::nullPlane, "destination.main"},
    {"no source alpha", Format::UYVY16IA8P, Format::BGR32I, [](Call& c) { c.source.alpha = {}; },
     ErrorCode::nullPlane, "source.alpha"},
    {"no destination alpha", Format::BGR32I, Format::UYVY16IA8P,
     [](Call& c) { c.destination.alpha = {}; }, ErrorCode::nullPlane, "destination.alpha"},
    {"no chroma", Format::Y8PUV8I, Format::BGR32I, [](Call& c) { c.source.chroma = {}; },
     ErrorCode::nullPlane, "source.chroma"},
    {"pitch below row", Format::UYVY16I, Format::BGR32I, [](Call& c) { c.source.main.pitch = 63; },
     ErrorCode::pitchBelowRow, "source.main.pitch"},
    {"upward pitch below row", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.destination.main.pitch = -127; }, ErrorCode::pitchBelowRow,
     "destination.main.pitch"},
    {"no alpha pitch", Format::UYVY16IA8P, Format::BGR32I,
     [](Call& c) { c.source.alpha.pitch = 0; }, ErrorCode::pitchBelowRow, "source.alpha.pitch"},
    {"short source", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.source.main.bytes = c.source.main.bytes.first(3 * 64 + 63); },
     ErrorCode::shortPlane, "source.main"},
    {"short destination, upwards", Format::UYVY16I, Format::BGR32I,
     [](Call& c) {
         c.destination.main.bytes = c.destination.main.bytes.first(3 * 128 + 127);
         c.destination.main.pitch = -128;
     },
     ErrorCode::shortPlane, "destination.main"},
    {"width beyond 32 bits", Format::UYVY16I, Format::BGR32I,
     [](Call& c) {
         c.source.width = c.destination.width = 0xFFFFFFFE;
         c.source.main.pitch = c.destination.main.pitch = PTRDIFF_MAX;
     },
     ErrorCode::sizeOverflow, "source.main.pitch"},
    {"lowest pitch", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.destination.main.pitch = PTRDIFF_MIN; }, ErrorCode::sizeOverflow,
     "destination.main.pitch"},
    {"height beyond memory", Format::UYVY16I, Format::BGR32I,
     [](Call& c) {
         c.source.height = c.destination.height = UINT32_MAX;
         c.source.main.pitch = 1 << 30;
     },
     ErrorCode::shortPlane, "source.main"},
    {"chroma of another pitch", Format::Y8PUV8I, Format::BGR32I,
     [](Call& c) { c.source.chroma.pitch = 32; }, ErrorCode::chromaPlacement,
     "source.chroma.pitch"},
    {"chroma elsewhere", Format::BGR32I, Format::Y8PUV8I,
     [](Call& c) { c.destination.main.bytes = c.destination.main.bytes.subspan(1); },
     ErrorCode::chromaPlacement, "destination.chroma"},
    {"upward chroma behind luma", Format::Y8PUV8I, Format::BGR32I,
     [](Call& c) { c.source.main.pitch = c.source.chroma.pitch = -64; }, ErrorCode::chromaPlacement,
     "source.chroma"},
    {"a row within the source", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.source.main.bytes = c.destination.main.bytes.subspan(3 * 128 + 127); },
     ErrorCode::shortPlane, "source.main"},
    {"source within the destination", Format::UYVY16I, Format::BGR32I,
     [](Call& c) { c.source.main.bytes = c.destination.main.bytes.last(4 * 64); },
     ErrorCode::overlap, "destination.main"},
    {"alpha within colour", Format::BGR32I, Format::UYVY16IA8P,
     [](Call& c) { c.destination.alpha = c.destination.main; }, ErrorCode::overlap,
     "destination.alpha"},
    {"BGR32I off its pairs", Format::UYVY16I, Format::BGR32I,
     [](Call& c) {
         c.source.width = c.destination.width = 2;
         c.destination.main.bytes = c.destination.main.bytes.subspan(4);
     },
     ErrorCode::misaligned, "destination.main"},
    {"BGR24I rows at odd addresses", Format::UYVY16I, Format::BGR24I,
     [](Call& c) {
         c.source.width = c.destination.width = 2;
         c.destination.main.pitch = 7;
     },
     ErrorCode::misaligned, "destination.main.pitch"},
    {"matrix into UVYY16I", Format::UYVY16I, Format::UVYY16I,
     [](Call& c) { c.options.dstMatrix = Matrix::bt601; }, ErrorCode::wrongLayout,
     "options.dstMatrix"},
    {"matrix out of UVYY16I", Format::UVYY16I, Format::UYVY16IA8P,
     [](Call& c) { c.options.srcMatrix = Matrix::bt601; }, ErrorCode::wrongLayout,
     "options.dstMatrix"},
    {"matrix into planes", Format::UYVY16I, Format::Y8PUV8I,
     [](Call& c) { c.options.srcMatrix = Matrix::bt601; }, ErrorCode::wrongLayout,
     "options.dstMatrix"},
};

TEST(Checked, RefusesWhatItCannotConvertRightly) {
    constexpr std::uint32_t width = 32, height = 4;
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.what);
        std::optional<Image> source = Image::create(refusal.from, width, height);
        Image destination = Image::create(refusal.to, width, height).value();
        const Image untouched = Image::create(refusal.to, width, height).value();
        Call call{{refusal.from, width, height, {}, {}, {}}, destination.view(), {}, {}};
        if (source) {
            call.source = source->view();
        }
        ASSERT_TRUE(convert(call.source, call.destination, call.options, call.rows));
        for (Plane plane :
             {call.destination.main, call.destination.chroma, call.destination.alpha}) {
            std::ranges::fill(plane.bytes, std::byte{});
        }
        refusal.mutate(call);
        const Result result = convert(call.source, call.destination, call.options, call.rows);
        EXPECT_EQ(int(result.code), int(refusal.code)) << result.describe();
        EXPECT_EQ(result.field, refusal.field);
        EXPECT_FALSE(result.advice.empty());
        for (std::size_t p = 0; p < planeCount; ++p) {
            EXPECT_TRUE(std::ranges::equal(planeOf(std::as_const(destination).view(), p).bytes,
                                           planeOf(untouched.view(), p).bytes));
        }
    }
}

}  // namespace
