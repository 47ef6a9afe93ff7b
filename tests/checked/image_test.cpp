// Formats and what they store, the list of conversions, and the memory of owning images.
#include "support/picture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace orva;
using namespace test;

namespace {

TEST(Formats, AreFoundByAnyOfTheirNames) {
    for (const FormatInfo& info : formats()) {
        EXPECT_EQ(formatNamed(info.name), info.format);
        EXPECT_EQ(formatInfo(info.format).name, info.name);
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
            EXPECT_EQ(pitch % (row < 64 ? 16 : 64),
                      0);  // no narrow image takes many times its size
            EXPECT_LT(static_cast<std::uint64_t>(pitch), row < 64 ? 2 * row : row + 64);
            EXPECT_GE(static_cast<std::uint64_t>(pitch), row);
            EXPECT_GE(bytes.size(), 2 * static_cast<std::uint64_t>(pitch) + row);
            EXPECT_EQ(std::ranges::count(bytes, std::byte{}), std::ptrdiff_t(bytes.size()));
        }
        EXPECT_TRUE(convert(image.view(), Image::create(info.format, 19, 3)->view()));
        const Image moved = std::move(image);
        EXPECT_EQ(moved.view().main.bytes.data(), view.main.bytes.data());
        EXPECT_EQ(image.format(), Format::A8C);
        EXPECT_EQ(image.width(), 0u);
        std::vector<Image> list(1);
        list[0] = std::move(image);
        EXPECT_EQ(list[0].width(), 0u);
        Image target = Image::create(Format::BGR32I, 7, 7).value();
        target = std::move(const_cast<Image&>(moved));
        EXPECT_EQ(target.view().main.bytes.data(), view.main.bytes.data());
        EXPECT_EQ(moved.format(), Format::A8C);
        EXPECT_EQ(moved.view().main.bytes.data(), nullptr);
    }
}

TEST(Image, IsNotMadeWithoutPlanesOrMemory) {
    EXPECT_FALSE(Image::create(Format::A8C, 16, 16));
    EXPECT_FALSE(Image::create(Format{22}, 16, 16));
    EXPECT_FALSE(Image::create(Format::BGR32I, UINT32_MAX, UINT32_MAX));
}

TEST(Image, MayBeEmpty) {
    EXPECT_EQ(Image().format(), Format::A8C);
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

// What a view's rows hold, numbered bytes.
template <class Byte> std::vector<int> rowsOf(const BasicImageView<Byte>& view, PlaneIndex plane) {
    std::vector<int> all;
    for (std::uint32_t y = 0; y < view.height; ++y) {
        for (const std::byte b : view.row(y, plane)) {
            all.push_back(std::to_integer<int>(b));
        }
    }
    return all;
}

std::vector<std::byte> numbered(std::size_t size) {
    std::vector<std::byte> bytes(size);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<std::byte>(i);
    }
    return bytes;
}

TEST(ImageView, LiesOverARawFrame) {
    const std::vector<std::byte> frame = numbered(24);
    const auto view = ConstImageView::overFrame(Format::Y8PU8PV8P, 3, 3, frame).value();
    EXPECT_EQ(frameBytes(Format::Y8PU8PV8P, 3, 3), 24u);
    EXPECT_EQ(rowsOf(view, mainPlane), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(rowsOf(view, chromaPlane), (std::vector{12, 13, 14, 15, 16, 17}));
    EXPECT_EQ(rowsOf(view, crPlane), (std::vector{18, 19, 20, 21, 22, 23}));
    EXPECT_FALSE(ConstImageView::overFrame(Format::Y8PU8PV8P, 3, 4, frame));
    EXPECT_FALSE(ConstImageView::overFrame(Format::A8C, 3, 3, frame));
    EXPECT_FALSE(ConstImageView::overFrame(Format{22}, 3, 3, frame));
    // Blocks of 48 pixels in files, as other programs have them.
    EXPECT_EQ(frameBytes(Format::V210, 1, 2), 256u);
    EXPECT_EQ(frameBytes(Format::V210, 1280, 720), 720u * 3456u);
    EXPECT_EQ(frameBytes(Format::BGR24IA8P, 5, 2), 40u);
    EXPECT_EQ(frameBytes(Format::BGR32I, UINT32_MAX, UINT32_MAX), UINT64_MAX);
    EXPECT_EQ(frameBytes(Format{22}, 5, 2), 0u);
}

TEST(ImageView, LiesOverRows) {
    std::vector<std::byte> bytes = numbered(32);
    const auto down =
        ImageView::overRows(Format::Y8PUV8I, 2, 3, {{bytes.data(), 4}, {bytes.data() + 16, 5}});
    EXPECT_EQ(rowsOf(down, mainPlane), (std::vector{0, 1, 4, 5, 8, 9}));
    EXPECT_EQ(rowsOf(down, chromaPlane), (std::vector{16, 17, 21, 22, 26, 27}));
    EXPECT_EQ(down.main.bytes.size(), 10u);
    const auto up = ConstImageView::overRows(Format::BGR24I, 1, 3, {{bytes.data() + 20, -10}});
    EXPECT_EQ(rowsOf(up, mainPlane), (std::vector{20, 21, 22, 10, 11, 12, 0, 1, 2}));
    Image screen = Image::create(Format::BGR32I, 1, 3).value();
    EXPECT_TRUE(convert(up, screen.view()));
    EXPECT_EQ(screen.row(2)[1], std::byte{1});
    EXPECT_EQ(convert(ConstImageView::overRows(Format::Y8PUV8I, 2, 3, {{bytes.data(), 4}}),
                      Image::create(Format::BGR32I, 2, 3)->view())
                  .field,
              "source.chroma.data");
}

TEST(ImageView, IsCroppedOnWholeUnits) {
    std::vector<std::byte> bytes = numbered(64);
    const auto view = ImageView::overFrame(Format::UYVY16I, 7, 4, bytes).value();
    EXPECT_EQ(rowsOf(view.cropped(2, 1, 3, 2).value(), mainPlane),
              (std::vector{20, 21, 22, 23, 24, 25, 26, 27, 36, 37, 38, 39, 40, 41, 42, 43}));
    EXPECT_TRUE(view.cropped(0, 0, 7, 4));
    EXPECT_TRUE(view.cropped(6, 3, 1, 1));
    for (const auto& [x, y, w, h] :
         std::vector<std::array<std::uint32_t, 4>>{{1, 0, 2, 1},
                                                   {6, 0, 2, 1},
                                                   {0, 3, 2, 2},
                                                   {8, 0, 0, 0},
                                                   {0, 5, 0, 0},
                                                   {2, 0, UINT32_MAX, 1},
                                                   {0, 1, 1, UINT32_MAX}}) {
        EXPECT_FALSE(view.cropped(x, y, w, h)) << x << ' ' << y << ' ' << w << ' ' << h;
    }
    // Upwards, at an odd pixel of RGB, twice.
    const auto up = ImageView::overRows(Format::BGR32I, 4, 4, {{bytes.data() + 48, -16}});
    EXPECT_EQ(rowsOf(up.cropped(1, 1, 3, 2)->cropped(1, 1, 1, 1).value(), mainPlane),
              (std::vector{24, 25, 26, 27}));
    const Image tens = Image::create(Format::V210, 12, 1).value();
    EXPECT_TRUE(tens.view().cropped(6, 0, 5, 1));
    EXPECT_FALSE(tens.view().cropped(4, 0, 5, 1));
    EXPECT_EQ(tens.view().cropped(6, 1, 2, 0)->height, 0u);
    EXPECT_TRUE(view.cropped(6, 0, 0, 4)->row(3).empty());
    EXPECT_TRUE(ImageView::overFrame(Format::UYVY16I, 0, 0, {}));
    EXPECT_FALSE(ImageView({Format::BGR32I, 4, 4, {bytes, 8}, {}, {}, {}}).cropped(0, 0, 1, 1));
}

TEST(Text, NamesFormatsAndResults) {
    std::ostringstream text;
    text << Format::UYVY16IA8P << ' ' << Format{99} << ' ' << Result{} << ' ' << convert({}, {});
    EXPECT_EQ(text.str(), "UYVY16IA8P Format(99) done destination.format is 12: it has no planes, "
                          "so it is a source only");
}

}  // namespace
