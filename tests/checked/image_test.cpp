// Formats and what they store, the list of conversions, and the memory of owning images.
#include "support/picture.hpp"

#include <gtest/gtest.h>

#include <algorithm>

using namespace orva;
using namespace test;

namespace {

TEST(Formats, AreFoundByAnyOfTheirNames) {
    for (const FormatInfo& info : formats()) {
        EXPECT_EQ(formatNamed(info.name), info.format);
        EXPECT_EQ(&formatInfo(info.format), &info);
        for (std::size_t at = 0; at < info.otherNames.size();) {
            const std::size_t end = std::min(info.otherNames.find(' ', at), info.otherNames.size());
            EXPECT_EQ(formatNamed(info.otherNames.substr(at, end - at)), info.format);
            at = end + 1;
        }
    }
    EXPECT_EQ(formatNamed("uyvy422"), Format::UYVY16I);
    EXPECT_EQ(formatNamed("YUY2"), Format::YUYV16I);
    EXPECT_EQ(formatNamed("nv16"), Format::Y8PUV8I);
    EXPECT_EQ(formatNamed("Bgra"), Format::BGR32I);
    EXPECT_EQ(formatNamed("v210"), Format::V210);
    for (const char* text : {"", " ", "uyvy422 uyvy", "UYVY16", "UYVY16IA"}) {
        EXPECT_FALSE(formatNamed(text)) << text;
    }
    EXPECT_EQ(formatInfo(Format{200}).format, Format::A8C);
}

TEST(Formats, AreWhatTheirNamesSay) {
    EXPECT_EQ(formats().size(), 22u);
    for (const FormatInfo& info : formats()) {
        SCOPED_TRACE(info.name);
        const bool alphaBeside = info.name.size() > 3 && info.name.ends_with("A8P");
        const std::string_view colour =
            alphaBeside ? info.name.substr(0, info.name.size() - 3) : info.name;
        const bool isRgb = colour.find('R') != colour.npos;
        const bool isAlpha = colour.starts_with("A8");
        const bool isTenBits = colour.find("10") != colour.npos;
        EXPECT_EQ(formatInfo(info.colour).name, colour);
        EXPECT_EQ(info.model, isRgb ? Model::rgb : isAlpha ? Model::alpha : Model::ycbcr);
        EXPECT_EQ(info.bits, isTenBits ? 10 : 8);
        EXPECT_EQ(info.hasAlpha, alphaBeside || isAlpha || colour.find("32") != colour.npos);
        EXPECT_EQ(rowBytes(info.format, alphaPlane, 5), alphaBeside ? 5u : 0u);
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane}) {
            EXPECT_EQ(rowBytes(info.format, p, 5), rowBytes(info.colour, p, 5));
        }
    }
}

TEST(Formats, HoldWholeUnits) {
    struct {
        Format format;
        std::array<std::uint64_t, 3> one, seven;
    } const rows[] = {
        {Format::UYVY16I, {4}, {16}},
        {Format::YUYV16I, {4}, {16}},
        {Format::UVYY16I, {4}, {16}},
        {Format::Y8PUV8I, {2, 2}, {8, 8}},
        {Format::Y8PU8PV8P, {2, 1, 1}, {8, 4, 4}},
        {Format::Y10PUV10I, {4, 4}, {16, 16}},
        {Format::Y10PU10PV10P, {4, 2, 2}, {16, 8, 8}},
        {Format::V210, {16}, {32}},
        {Format::BGR24I, {3}, {21}},
        {Format::RGB24I, {3}, {21}},
        {Format::BGR32I, {4}, {28}},
        {Format::RGB32I, {4}, {28}},
        {Format::ARGB32I, {4}, {28}},
        {Format::ABGR32I, {4}, {28}},
        {Format::A8P, {1}, {7}},
        {Format::A8C, {}, {}},
    };
    for (const auto& [format, one, seven] : rows) {
        SCOPED_TRACE(formatInfo(format).name);
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane}) {
            EXPECT_EQ(rowBytes(format, p, 0), 0u);
            EXPECT_EQ(rowBytes(format, p, 1), one[p]);
            EXPECT_EQ(rowBytes(format, p, 7), seven[p]);
        }
    }
    EXPECT_EQ(rowBytes(Format::BGR32I, mainPlane, UINT32_MAX), 4 * std::uint64_t{UINT32_MAX});
    EXPECT_EQ(rowBytes(Format::UYVY16I, mainPlane, UINT32_MAX), std::uint64_t{1} << 33);
}

TEST(Conversions, AreAllPairsThatMakeSense) {
    std::vector<Conversion> expected;
    for (const FormatInfo& from : formats()) {
        for (const FormatInfo& to : formats()) {
            const bool known = to.model == Model::alpha ? to.format == Format::A8P && from.hasAlpha
                                                        : from.model != Model::alpha;
            EXPECT_EQ(canConvert(from.format, to.format), known) << nameOf(from.format, to.format);
            if (known) {
                expected.push_back({from.format, to.format});
            }
        }
    }
    const auto same = [](const Conversion& a, const Conversion& b) {
        return a.source == b.source && a.destination == b.destination;
    };
    EXPECT_TRUE(std::ranges::equal(conversions(), expected, same));
    EXPECT_FALSE(canConvert(Format{200}, Format::BGR32I));
    EXPECT_FALSE(canConvert(Format::BGR32I, Format{22}));
}

TEST(Image, LiesAtCacheLines) {
    for (const FormatInfo& info : formats()) {
        if (info.format == Format::A8C) {
            continue;
        }
        SCOPED_TRACE(info.name);
        Image image = Image::create(info.format, 19, 3).value();
        const ImageView view = image.view();
        for (const PlaneIndex p : planeIndices) {
            const auto& [bytes, pitch] = planeOf(view, p);
            const std::uint64_t row = rowBytes(info.format, p, 19);
            ASSERT_EQ(bytes.empty(), row == 0);
            if (row == 0) {
                continue;
            }
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes.data()) % 64, 0u);
            EXPECT_EQ(pitch % 64, 0);
            EXPECT_GE(static_cast<std::uint64_t>(pitch), row);
            EXPECT_GE(bytes.size(), 2 * static_cast<std::uint64_t>(pitch) + row);
            EXPECT_EQ(std::ranges::count(bytes, std::byte{}), std::ptrdiff_t(bytes.size()));
        }
        EXPECT_TRUE(convert(image.view(), Image::create(info.format, 19, 3)->view()));
        const Image moved = std::move(image);
        EXPECT_EQ(moved.view().main.bytes.data(), view.main.bytes.data());
        EXPECT_EQ(image.format(), Format::A8C);
        EXPECT_EQ(image.width(), 0u);
    }
}

TEST(Image, IsNotMadeWithoutPlanesOrMemory) {
    EXPECT_FALSE(Image::create(Format::A8C, 16, 16));
    EXPECT_FALSE(Image::create(Format{22}, 16, 16));
    EXPECT_FALSE(Image::create(Format::BGR32I, UINT32_MAX, UINT32_MAX));
}

TEST(Image, MayBeEmpty) {
    const Image source = Image::create(Format::UYVY16I, 0, 4).value();
    Image destination = Image::create(Format::BGR32I, 0, 4).value();
    EXPECT_TRUE(convert(source.view(), destination.view()));
    // No row, and no plane either.
    EXPECT_TRUE(
        convert({Format::UYVY16I, 16, 0, {}, {}, {}, {}}, {Format::BGR32I, 16, 0, {}, {}, {}, {}}));
    // No row of some.
    EXPECT_TRUE(convert(Image::create(Format::UYVY16I, 6, 4)->view(),
                        Image::create(Format::V210, 6, 4)->view(), {}, {4, 1}));
}

}  // namespace
