// Formats by name, the list of conversions, and the memory of owning images.
#include "support/exports.hpp"

#include <orva/convert.hpp>

#include <gtest/gtest.h>

using namespace orva;

namespace {

TEST(Formats, AreFoundByAnyOfTheirNames) {
    for (const FormatInfo& info : formats()) {
        EXPECT_EQ(formatNamed(info.name), info.format);
        EXPECT_EQ(&formatInfo(info.format), &info);
    }
    EXPECT_EQ(formatNamed("uyvy422"), Format::UYVY16I);
    EXPECT_EQ(formatNamed("YUY2"), Format::YUYV16I);
    EXPECT_EQ(formatNamed("nv16"), Format::Y8PUV8I);
    EXPECT_EQ(formatNamed("Bgra"), Format::BGR32I);
    for (const char* text : {"", " ", "uyvy422 uyvy", "UYVY16", "UYVY16IA"}) {
        EXPECT_FALSE(formatNamed(text)) << text;
    }
}

TEST(Conversions, AreThoseOfTheExportList) {
    const auto pairs = conversions();
    ASSERT_EQ(pairs.size(), test::exports().size());
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const auto& [source, destination] = pairs[i];
        EXPECT_EQ(std::string(formatInfo(source).name) + "_" +
                      std::string(formatInfo(destination).name),
                  test::exports()[i].name);
        EXPECT_TRUE(canConvert(source, destination));
    }
    EXPECT_FALSE(canConvert(Format::A8P, Format::BGR32I));
    EXPECT_FALSE(canConvert(Format{200}, Format::BGR32I));
}

TEST(Image, LiesAsTheFastKernelsWantIt) {
    for (const FormatInfo& info : formats()) {
        if (info.format == Format::A8C) {
            continue;
        }
        Image image = Image::create(info.format, 18, 3).value();
        const ImageView view = image.view();
        const auto expectPlane = [](const Plane& plane, std::size_t rowBytes) {
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(plane.bytes.data()) % 64, 0u);
            EXPECT_EQ(plane.pitch % 64, 0);
            EXPECT_GE(static_cast<std::size_t>(plane.pitch), rowBytes);
            EXPECT_EQ(plane.bytes.size(), static_cast<std::size_t>(3 * plane.pitch));
        };
        expectPlane(view.main, std::size_t{18} * info.bytesPerPixel);
        EXPECT_EQ(view.main.pitch % 48 == 0, info.bytesPerPixel == 3);
        EXPECT_EQ(view.chroma.bytes.empty(), !info.chromaPlane);
        EXPECT_EQ(view.alpha.bytes.empty(), !info.alphaPlane);
        if (info.chromaPlane) {
            EXPECT_EQ(view.chroma.bytes.data(), view.main.bytes.data() + view.main.bytes.size());
            expectPlane(view.chroma, 18);
        }
        if (info.alphaPlane) {
            expectPlane(view.alpha, 18);
        }
        const Image moved = std::move(image);
        EXPECT_EQ(moved.view().main.bytes.data(), view.main.bytes.data());
    }
}

TEST(Image, IsRefusedWhatConvertWouldNotTake) {
    EXPECT_FALSE(Image::create(Format::A8C, 16, 16));
    EXPECT_FALSE(Image::create(Format::YUYV16I, 17, 16));
    EXPECT_FALSE(Image::create(Format::BGR32I, UINT32_MAX, 1));
    EXPECT_FALSE(Image::create(Format::Y8PUV8I, 1 << 16, 1 << 15));
}

TEST(Image, MayBeEmpty) {
    Image source = Image::create(Format::UYVY16I, 0, 4).value();
    Image destination = Image::create(Format::BGR32I, 0, 4).value();
    EXPECT_TRUE(convert(source.view(), destination.view()));
    // No row, and no plane either.
    EXPECT_TRUE(convert({Format::UYVY16I, 16, 0, {}, {}, {}}, {Format::BGR32I, 16, 0, {}, {}, {}}));
}

}  // namespace
