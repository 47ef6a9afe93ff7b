// The checked library: what it refuses, and that whatever it accepts becomes the picture that the
// definitions describe, with every table of kernels the same, wherever the planes lie, however rows
// are split and past the cache or not.
#include "reference/picture.hpp"
#include "support/picture.hpp"
#include "support/tables.hpp"

#include <algorithm>
#include <numeric>
#include <optional>
#include <thread>

using namespace orva;
using namespace test;

namespace {

template <class Value, std::size_t count>
Value anyOf(const Value (&values)[count], Random& random) {
    return values[pick(random, count)];
}

Options randomOptions(Random& random) {
    constexpr Matrix matrices[] = {Matrix::bt601, Matrix::bt709, Matrix::bt2020};
    constexpr Range ranges[] = {Range::studio, Range::full};
    constexpr Chroma places[] = {Chroma::cosited, Chroma::nearest};
    constexpr int alphas[] = {255, 0, 1, 127, 128, 77};
    constexpr Streaming stores[] = {Streaming::automatic, Streaming::never, Streaming::always};
    Options options{anyOf(matrices, random), anyOf(matrices, random), anyOf(ranges, random),
                    anyOf(ranges, random),   anyOf(places, random),   anyOf(alphas, random),
                    anyOf(stores, random)};
    // Same matrix and range are a path of their own.
    if (pick(random, 3) == 0) {
        options.dstMatrix = options.srcMatrix;
        options.dstRange = options.srcRange;
    }
    return options;
}

// Converts the rows in ranges of so many, in any order.
Result convertInRanges(const ConstImageView& source, const ImageView& destination,
                       const Options& options, std::uint32_t rows, Random random) {
    std::vector<std::uint32_t> ranges((source.height + rows - 1) / rows);
    std::iota(ranges.begin(), ranges.end(), 0);
    std::ranges::shuffle(ranges, random);
    Result result;
    for (const std::uint32_t range : ranges) {
        if (result) {
            result = convert(source, destination, options, {range * rows, rows});
        }
    }
    return result;
}

// With some of the planes that may be shared as the source's and the others on their own, gives the
// bytes that were made in separate planes, and changes nothing else.
void checkInPlace(const Canvas& source, const Canvas& poison, Canvas separate,
                  const Options& options, Random random) {
    Canvas sharedAfter = source, sharedExpected = source, ownAfter = poison, ownExpected = poison;
    const ImageView from = sharedAfter.view();
    ImageView to = ownAfter.view();
    ImageView inShared = sharedExpected.view(), inOwn = ownExpected.view();
    inShared.format = to.format;
    for (const PlaneIndex p : planeIndices) {
        const bool isCommon = std::ranges::count(commonPlanes(from.format, to.format), p) > 0;
        if (isCommon && pick(random, 4) != 0) {
            planeOf(to, p) = planeOf(from, p);
            planeOf(inOwn, p) = {};
        } else {
            planeOf(inShared, p) = {};
        }
    }
    copyRows(separate.view(), inShared, 0, to.height);
    copyRows(separate.view(), inOwn, 0, to.height);
    const Result result = convertInRanges(from, to, options, 1 + pick(random, to.height), random);
    EXPECT_TRUE(result) << result.describe();
    EXPECT_TRUE(sharedAfter.memory == sharedExpected.memory) << "shared planes";
    EXPECT_TRUE(ownAfter.memory == ownExpected.memory) << "other planes";
}

void checkOnce(Format from, Format to, std::uint32_t width, Random& random) {
    // Some of more rows than a strip holds of that width.
    const bool isTall = width < 32 && pick(random, 6) == 0;
    const std::uint32_t height = isTall ? 1 + pick(random, 120) : 1 + pick(random, 4);
    const std::uint32_t inOneRange = 1 + pick(random, height);
    const Options options = randomOptions(random);
    const Placements sourcePlacements = randomPlacements(random);
    const Placements placements = randomPlacements(random);
    SCOPED_TRACE(::testing::Message()
                 << nameOf(from, to) << " " << width << "x" << height << ", " << describe(options)
                 << ", in ranges of " << inOneRange << "; source " << describe(sourcePlacements)
                 << "destination " << describe(placements));
    Canvas source(from, width, height, sourcePlacements);
    Canvas poison(to, width, height, placements);
    fill(source, random);
    fill(poison, random);
    if (pick(random, 3) != 0) {
        fillSoftly(source.view(), random);
    }
    const Canvas pristine = source;

    std::optional<Canvas> first;
    withEveryPictureTable([&] {
        Canvas whole = poison, parts = poison;
        Options stored = options;
        stored.streaming = Streaming::never;
        const Result result = convert(source.view(), whole.view(), stored);
        ASSERT_TRUE(result) << result.describe();
        ASSERT_TRUE(convertInRanges(source.view(), parts.view(), options, inOneRange, random));
        EXPECT_TRUE(parts.memory == whole.memory) << "in ranges another picture than at once";
        EXPECT_TRUE(source.memory == pristine.memory) << "the source changed";
        if (first) {
            EXPECT_TRUE(whole.memory == first->memory) << "tables differ";
        } else {
            first = whole;
            const Judgement judgement = judge(source.view(), whole.view(), options, 0, height);
            EXPECT_EQ(judgement.fault, "");
            Canvas outside = poison;
            copyRows(whole.view(), outside.view(), 0, height);
            EXPECT_TRUE(outside.memory == whole.memory) << "bytes outside of the rows changed";
        }
        if (!commonPlanes(from, to).empty()) {
            checkInPlace(source, poison, whole, options, random);
        }
    });
}

class EverySource : public ::testing::TestWithParam<std::size_t> {};

TEST_P(EverySource, MakesThePictureOfTheDefinitions) {
    Random random(7);
    const Format from = formats()[GetParam()].format;
    std::vector<std::uint32_t> widths(100);
    std::iota(widths.begin(), widths.end(), 1);
    // Around the ends of the strips that rows are converted in.
    widths.insert(widths.end(), {383, 384, 385, 767, 768, 769, 770, 1535, 1536, 1537, 1700});
    const auto failures = [] {
        return ::testing::UnitTest::GetInstance()
            ->current_test_info()
            ->result()
            ->total_part_count();
    };
    for (const FormatInfo& to : formats()) {
        const int before = failures();
        for (std::size_t i = 0; canConvert(from, to.format) && i < widths.size(); ++i) {
            checkOnce(from, to.format, widths[i], random);
            if (failures() > before) {
                break;
            }
        }
    }
}

// Such as images of the library's own have: most of a row goes past the cache, its end does not.
TEST_P(EverySource, FillsLongRowsThatBeginAtCacheLines) {
    Random random(8);
    const Format from = formats()[GetParam()].format;
    for (const FormatInfo& to : formats()) {
        for (const std::uint32_t width : {2562, 2687}) {
            if (!canConvert(from, to.format)) {
                continue;
            }
            SCOPED_TRACE(nameOf(from, to.format) + " " + std::to_string(width));
            Placements placements;
            for (const PlaneIndex p : planeIndices) {
                placements[p].gap = std::uint32_t(-rowBytes(to.format, p, width) % 64);
            }
            Canvas source(from, width, 3, randomPlacements(random));
            Canvas poison(to.format, width, 3, placements);
            fill(source, random);
            fill(poison, random);
            Options options = randomOptions(random);
            withEveryPictureTable([&] {
                Canvas expected = poison, streamed = poison;
                options.streaming = Streaming::never;
                ASSERT_TRUE(convert(source.view(), expected.view(), options));
                options.streaming = Streaming::always;
                ASSERT_TRUE(convert(source.view(), streamed.view(), options));
                EXPECT_TRUE(streamed.memory == expected.memory);
            });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Checked, EverySource, ::testing::Range<std::size_t>(0, formats().size()),
                         [](const auto& info) { return std::string(formats()[info.param].name); });

// No colour is made of greys, and none is lost: within 0.6 of a code two of R, G and B might
// differ.
TEST(Checked, NeutralStaysNeutral) {
    using reference::Row;
    Random random(1);
    for (const auto& [from, to] : conversions()) {
        const FormatInfo &source = formatInfo(from), &destination = formatInfo(to);
        if (source.model == destination.model || destination.model == Model::alpha) {
            continue;
        }
        const std::uint32_t width = 1u << source.bits;
        Canvas grey(from, width, 1, {}), made(to, width, 1, {});
        Row<int> samples, result;
        for (std::size_t c = 0; c < samples.size(); ++c) {
            samples[c].resize(reference::sampleCount(from, c, width), int(width / 2));
        }
        for (std::size_t c = 0; c < (source.model == Model::rgb ? 3 : 1); ++c) {
            std::iota(samples[c].begin(), samples[c].end(), 0);
        }
        reference::write(from, width, samples, rowOf(grey.view(), 0));
        for (int i = 0; i < 12; ++i) {
            const Options options = randomOptions(random);
            ASSERT_TRUE(convert(grey.view(), made.view(), options));
            reference::read(to, width, rowOf(ConstImageView(made.view()), 0), result);
            const auto& [first, second, third, alpha] = result;
            SCOPED_TRACE(nameOf(from, to) + ", " + describe(options));
            if (destination.model == Model::rgb) {
                ASSERT_EQ(first, second);
                ASSERT_EQ(first, third);
            } else {
                const int neutral = 1 << (destination.bits - 1);
                ASSERT_EQ(std::ranges::count(second, neutral), width / 2);
                ASSERT_EQ(std::ranges::count(third, neutral), width / 2);
            }
        }
    }
}

// A call that is accepted, for mutations to break.
struct Call {
    ConstImageView from;
    ImageView to;
    Options options;
    RowRange rows;
};

struct Refusal {
    const char* what;
    Conversion formats;
    void (*mutate)(Call&);
    ErrorCode code;
    std::string_view field;
};

constexpr std::uint32_t width = 32, height = 4;

constexpr Conversion packed = {Format::UYVY16I, Format::BGR32I};  // rows of 64 and of 128 bytes
constexpr Conversion inPlace = {Format::UYVY16I, Format::YUYV16I};
constexpr Conversion planar = {Format::Y8PU8PV8P, Format::Y10PU10PV10P};
constexpr Conversion withAlpha = {Format::UYVY16IA8P, Format::BGR24IA8P};

void resize(Call& c, std::uint32_t newWidth, std::uint32_t newHeight) {
    c.from.width = c.to.width = newWidth;
    c.from.height = c.to.height = newHeight;
}
template <class Byte> void shorten(BasicPlane<Byte>& plane, std::size_t size) {
    plane.bytes = plane.bytes.first(size);
}
// Puts the source so many bytes behind the destination's beginning, with a pitch of its own.
void moveOnto(Call& c, std::uint32_t rows, std::size_t distance, std::ptrdiff_t pitch) {
    resize(c, width, rows);
    c.from.main = {c.to.main.bytes.subspan(distance), pitch};
}

using enum ErrorCode;
const Refusal refusals[] = {
    {"a value", packed, [](Call& c) { c.from.format = Format{22}; }, badFormat, "source.format"},
    {"a value", packed, [](Call& c) { c.to.format = Format{255}; }, badFormat,
     "destination.format"},
    {"alpha to colour", packed, [](Call& c) { c.from.format = Format::A8P; }, noSuchConversion,
     "destination.format"},
    {"constant to colour", packed, [](Call& c) { c.from.format = Format::A8C; }, noSuchConversion,
     "destination.format"},
    {"colour to alpha", packed, [](Call& c) { c.to.format = Format::A8P; }, noSuchConversion,
     "destination.format"},
    {"into a constant", packed, [](Call& c) { c.to.format = Format::A8C; }, noSuchConversion,
     "destination.format"},

    {"256", packed, [](Call& c) { c.options.alpha = 256; }, badOption, "options.alpha"},
    {"-1", packed, [](Call& c) { c.options.alpha = -1; }, badOption, "options.alpha"},
    {"3", packed, [](Call& c) { c.options.srcMatrix = Matrix{3}; }, badOption, "options.srcMatrix"},
    {"255", packed, [](Call& c) { c.options.dstMatrix = Matrix{255}; }, badOption,
     "options.dstMatrix"},
    {"2", packed, [](Call& c) { c.options.srcRange = Range{2}; }, badOption, "options.srcRange"},
    {"9", packed, [](Call& c) { c.options.dstRange = Range{9}; }, badOption, "options.dstRange"},
    {"2", packed, [](Call& c) { c.options.chroma = Chroma{2}; }, badOption, "options.chroma"},
    {"3", packed, [](Call& c) { c.options.streaming = Streaming{3}; }, badOption,
     "options.streaming"},

    {"other width", packed, [](Call& c) { c.from.width -= 1; }, sizeMismatch, "destination.width"},
    {"other height",
     {Format::A8C, Format::A8P},
     [](Call& c) { c.from.height -= 1; },
     sizeMismatch,
     "destination.height"},
    {"beyond the last", packed, [](Call& c) { c.rows.first = height + 1; }, badRows, "rows.first"},

    {"none", packed, [](Call& c) { c.from.main.bytes = {}; }, nullPlane, "source.main.data"},
    {"none", packed, [](Call& c) { c.to.main = {}; }, nullPlane, "destination.main.data"},
    {"none", planar, [](Call& c) { c.from.chroma = {}; }, nullPlane, "source.chroma.data"},
    {"none", planar, [](Call& c) { c.to.cr = {}; }, nullPlane, "destination.cr.data"},
    {"none", withAlpha, [](Call& c) { c.from.alpha = {}; }, nullPlane, "source.alpha.data"},
    {"none", withAlpha, [](Call& c) { c.to.alpha = {}; }, nullPlane, "destination.alpha.data"},

    {"below the row", packed, [](Call& c) { c.from.main.pitch = 63; }, pitchBelowRow,
     "source.main.pitch"},
    {"below an odd row's last unit", packed,
     [](Call& c) { resize(c, 31, height), c.from.main.pitch = 62; }, pitchBelowRow,
     "source.main.pitch"},
    {"upwards, below the row", packed, [](Call& c) { c.to.main.pitch = -127; }, pitchBelowRow,
     "destination.main.pitch"},
    {"zero", withAlpha, [](Call& c) { c.from.alpha.pitch = 0; }, pitchBelowRow,
     "source.alpha.pitch"},
    {"below the row", planar, [](Call& c) { c.from.cr.pitch = 15; }, pitchBelowRow,
     "source.cr.pitch"},
    {"row beyond 32 bits", packed, [](Call& c) { resize(c, UINT32_MAX, height); },
     sizeof(void*) == 4 ? badSize : pitchBelowRow,
     sizeof(void*) == 4 ? "source.width" : "source.main.pitch"},

    {"a byte short", packed, [](Call& c) { shorten(c.from.main, 3 * 64 + 63); }, shortPlane,
     "source.main.size"},
    {"a byte short, upwards", packed,
     [](Call& c) { shorten(c.to.main, 3 * 128 + 127), c.to.main.pitch = -128; }, shortPlane,
     "destination.main.size"},
    {"a byte short", planar, [](Call& c) { shorten(c.to.chroma, 3 * 32 + 31); }, shortPlane,
     "destination.chroma.size"},
    {"a byte short", withAlpha, [](Call& c) { shorten(c.from.alpha, 3 * 32 + 31); }, shortPlane,
     "source.alpha.size"},
    {"rows beyond memory", packed, [](Call& c) { resize(c, width, UINT32_MAX); }, shortPlane,
     "source.main.size"},
    // Extents of 64 bytes if they were counted in as many bits as pitches have.
    {"pitches that add up to 0", packed,
     [](Call& c) { resize(c, width, 5), c.from.main.pitch = PTRDIFF_MAX / 2 + 1; }, shortPlane,
     "source.main.size"},
    {"lowest pitches, which add up to 0", packed,
     [](Call& c) { resize(c, width, 3), c.from.main.pitch = PTRDIFF_MIN; }, shortPlane,
     "source.main.size"},

    {"at its end", packed, [](Call& c) { moveOnto(c, height, 256, 64); }, overlap,
     "destination.main.data"},
    {"at its last byte", packed, [](Call& c) { moveOnto(c, 2, 128 + 127, 64); }, overlap,
     "destination.main.data"},
    // Whose rows take 96 bytes in both.
    {"in place with other units",
     {Format::V210, Format::BGR24I},
     [](Call& c) { moveOnto(c, height, 0, 128); },
     overlap,
     "destination.main.data"},
    {"in place upside down", inPlace, [](Call& c) { moveOnto(c, height, 0, -64); }, overlap,
     "destination.main.data"},
    {"in place with another pitch", inPlace, [](Call& c) { moveOnto(c, 2, 0, 128); }, overlap,
     "destination.main.data"},
    {"a pair further", inPlace, [](Call& c) { moveOnto(c, 3, 4, 64); }, overlap,
     "destination.main.data"},
    {"a row further", inPlace, [](Call& c) { moveOnto(c, 3, 64, 64); }, overlap,
     "destination.main.data"},
    {"alpha on colour", withAlpha, [](Call& c) { c.to.alpha = c.to.main; }, overlap,
     "destination.alpha.data"},
    {"Cr on Cb", planar, [](Call& c) { c.to.cr = c.to.chroma; }, overlap, "destination.cr.data"},
    {"source alpha on colour", withAlpha, [](Call& c) { c.from.alpha.bytes = c.to.main.bytes; },
     overlap, "destination.main.data"},
};

TEST(Checked, RefusesWhatItCannotConvertRightly) {
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(std::string(refusal.field) + ": " + refusal.what);
        const auto& [from, to] = refusal.formats;
        const std::optional<Image> source = Image::create(from, width, height);
        Image destination = Image::create(to, width, height).value();
        const Image untouched = Image::create(to, width, height).value();
        Call call{{from, width, height, {}, {}, {}, {}}, destination.view(), {}, {}};
        if (source) {
            call.from = source->view();
        }
        ASSERT_TRUE(convert(call.from, call.to, call.options, call.rows));
        for (const PlaneIndex p : planeIndices) {
            std::ranges::fill(planeOf(call.to, p).bytes, std::byte{});
        }
        refusal.mutate(call);
        const Result result = convert(call.from, call.to, call.options, call.rows);
        EXPECT_EQ(int(result.code), int(refusal.code)) << result.describe();
        EXPECT_EQ(result.field, refusal.field);
        EXPECT_FALSE(result.advice.empty());
        EXPECT_EQ(result.describe(), std::string(result.field) + " is " +
                                         std::to_string(result.value) + ": " +
                                         std::string(result.advice));
        for (const PlaneIndex p : planeIndices) {
            EXPECT_TRUE(std::ranges::equal(planeOf(destination.view(), p).bytes,
                                           planeOf(untouched.view(), p).bytes));
        }
    }
}

// Planes that are only read may lie on one another.
TEST(Checked, AcceptsOneSourcePlaneForTwo) {
    const Image source = Image::create(planar.source, width, height).value();
    Image destination = Image::create(planar.destination, width, height).value();
    ConstImageView from = source.view();
    from.cr = from.chroma = from.main;
    EXPECT_TRUE(convert(from, destination.view()));
}

// As large as automatic streaming waits for, between formats that need passes through memory.
TEST(Checked, MakesLargeImagesOfTheSameBytesPastTheCacheAndOnThreads) {
    constexpr std::uint32_t width = 4096, height = 2160;
    Random random(3);
    Image source = Image::create(Format::V210, width, height).value();
    for (std::uint32_t y = 0; y < height; ++y) {
        fill(std::span(rowOf(source.view(), y)[mainPlane], 4096), random);
    }
    const auto converted = [&](Streaming streaming, std::uint32_t threadCount) {
        Image image = Image::create(Format::BGR24IA8P, width, height).value();
        std::vector<std::thread> threads;
        for (std::uint32_t i = 0; i < threadCount; ++i) {
            threads.emplace_back([&, i] {
                const std::uint32_t rows = height / threadCount;
                EXPECT_TRUE(convert(source.view(), image.view(), {.streaming = streaming},
                                    {i * rows, rows}));
            });
        }
        std::ranges::for_each(threads, &std::thread::join);
        return image;
    };
    const Image expected = converted(Streaming::never, 1);
    for (const auto& [streaming, threadCount] :
         {std::pair{Streaming::automatic, 1}, {Streaming::always, 4}, {Streaming::never, 5}}) {
        const Image image = converted(streaming, threadCount);
        for (const PlaneIndex p : {mainPlane, alphaPlane}) {
            EXPECT_TRUE(std::ranges::equal(planeOf(image.view(), p).bytes,
                                           planeOf(expected.view(), p).bytes));
        }
    }
}

}  // namespace
