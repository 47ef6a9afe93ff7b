// What only callers of the C interface can get wrong, and the texts that they get.
#include <orva/convert.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

struct Frames {
    std::array<std::uint8_t, 16> uyvy{128, 235, 128, 16};
    std::array<std::uint8_t, 32> bgr{};
    OrvaImage source = ORVA_IMAGE_INIT, destination = ORVA_IMAGE_INIT;

    Frames() {
        EXPECT_EQ(orva_frame_image(&source, ORVA_FORMAT_UYVY16I, 2, 1, uyvy.data(), 4, nullptr), 0);
        EXPECT_EQ(orva_frame_image(&destination, ORVA_FORMAT_BGR32I, 2, 1, bgr.data(), 8, nullptr),
                  0);
    }
    int32_t convert(const OrvaOptions* options, OrvaError* error) {
        return orva_convert(&source, &destination, options, error);
    }
};

void expectRefusal(const OrvaError& error, int32_t returned, int32_t code, const char* field) {
    EXPECT_EQ(returned, code) << field;
    EXPECT_EQ(error.code, code) << field;
    EXPECT_STREQ(error.field, field);
    EXPECT_STRNE(error.advice, "") << field;
}

TEST(CInterface, ConvertsWithAndWithoutOptionsAndError) {
    OrvaOptions options;
    EXPECT_EQ(orva_options_init(&options, sizeof options), ORVA_DONE);
    for (const OrvaOptions* choice : std::array<const OrvaOptions*, 2>{&options, nullptr}) {
        Frames frames;
        OrvaError error = ORVA_ERROR_INIT;
        EXPECT_EQ(frames.convert(choice, choice ? &error : nullptr), ORVA_DONE);
        EXPECT_EQ(frames.bgr, (std::array<std::uint8_t, 32>{255, 255, 255, 255, 0, 0, 0, 255}));
        EXPECT_EQ(error.code, ORVA_DONE);
    }
}

TEST(CInterface, RefusesNullAndUnknownSizes) {
    Frames frames;
    OrvaError error = ORVA_ERROR_INIT;
    OrvaOptions options = ORVA_OPTIONS_INIT;
    expectRefusal(error, orva_convert(nullptr, &frames.destination, nullptr, &error),
                  ORVA_NULL_ARGUMENT, "source");
    expectRefusal(error, orva_convert(&frames.source, nullptr, nullptr, &error), ORVA_NULL_ARGUMENT,
                  "destination");
    expectRefusal(error, orva_crop(nullptr, 0, 0, 1, 1, &error), ORVA_NULL_ARGUMENT, "image");
    expectRefusal(error,
                  orva_frame_image(nullptr, ORVA_FORMAT_A8P, 1, 1, frames.bgr.data(), 1, &error),
                  ORVA_NULL_ARGUMENT, "image");
    expectRefusal(error,
                  orva_frame_image(&frames.source, ORVA_FORMAT_A8P, 1, 1, nullptr, 1, &error),
                  ORVA_NULL_ARGUMENT, "data");
    OrvaImage empty = ORVA_IMAGE_INIT, unset = {};
    EXPECT_EQ(orva_frame_image(&empty, ORVA_FORMAT_A8P, 0, 1, nullptr, 0, &error), ORVA_DONE);
    expectRefusal(error,
                  orva_frame_image(&unset, ORVA_FORMAT_A8P, 1, 1, frames.bgr.data(), 1, &error),
                  ORVA_BAD_STRUCT_SIZE, "image.structSize");
    options.structSize += 4;
    expectRefusal(error, frames.convert(&options, &error), ORVA_BAD_STRUCT_SIZE,
                  "options.structSize");
    frames.destination.structSize = 0;
    expectRefusal(error, frames.convert(nullptr, &error), ORVA_BAD_STRUCT_SIZE,
                  "destination.structSize");
    expectRefusal(error, orva_crop(&frames.destination, 0, 0, 1, 1, &error), ORVA_BAD_STRUCT_SIZE,
                  "image.structSize");
    EXPECT_EQ(orva_options_init(nullptr, sizeof options), ORVA_NULL_ARGUMENT);
    EXPECT_EQ(orva_options_init(&options, 8), ORVA_BAD_STRUCT_SIZE);

    Frames sound;
    error = {4, 77, 77, "left", "alone"};
    EXPECT_EQ(sound.convert(nullptr, &error), ORVA_BAD_STRUCT_SIZE);
    EXPECT_EQ(error.code, 77);
    EXPECT_EQ(sound.bgr, (std::array<std::uint8_t, 32>{}));
    EXPECT_EQ(orva_describe(&error, nullptr, 0), 0u);
    EXPECT_EQ(orva_describe(nullptr, nullptr, 0), 0u);
    EXPECT_EQ(orva_format_info(orva_format_count()), nullptr);
    EXPECT_EQ(orva_format_named(nullptr), ORVA_FORMAT_NONE);
}

TEST(CInterface, DescribesErrors) {
    const OrvaError error{sizeof error, ORVA_PITCH_BELOW_ROW, INT64_MIN, "a.pitch", "mend it"};
    const std::string whole = "a.pitch is -9223372036854775808: mend it";
    for (std::size_t size = 0; size < 60; ++size) {
        std::string text(60, '#');
        EXPECT_EQ(orva_describe(&error, text.data(), size), whole.size());
        const std::string written = size == 0 ? "" : whole.substr(0, size - 1) + '\0';
        EXPECT_EQ(text, written + std::string(60 - written.size(), '#'));
    }
    const OrvaError empty{sizeof empty, ORVA_OVERLAP, 7, nullptr, nullptr};
    EXPECT_EQ(orva_describe(&empty, nullptr, 0), 7u);
    const OrvaError none = ORVA_ERROR_INIT;
    std::array<char, 8> text;
    EXPECT_EQ(orva_describe(&none, text.data(), text.size()), 4u);
    EXPECT_STREQ(text.data(), "done");
}

TEST(CInterface, TellsHowPlanesOverlap) {
    Frames frames;
    OrvaError error = ORVA_ERROR_INIT;
    frames.source.main.data = frames.bgr.data() + 4;
    expectRefusal(error, frames.convert(nullptr, &error), ORVA_OVERLAP, "destination.main.data");
    EXPECT_EQ(error.value, -4);
}

// A row or a plane that no memory of this word size holds is blamed on what makes it so.
TEST(CInterface, RefusesSizesBeyondTheAddressSpace) {
    Frames frames;
    OrvaError error = ORVA_ERROR_INIT;
    for (OrvaImage* image : {&frames.source, &frames.destination}) {
        image->main.size = PTRDIFF_MAX;
        image->main.size += 4;
        image->main.pitch = PTRDIFF_MAX;
    }
    frames.source.height = frames.destination.height = 2;
    frames.source.main.pitch = PTRDIFF_MAX - 2;
    expectRefusal(error, frames.convert(nullptr, &error), ORVA_BAD_SIZE, "source.main.size");
    expectRefusal(error,
                  orva_frame_image(&frames.source, ORVA_FORMAT_BGR32I, UINT32_MAX, UINT32_MAX,
                                   frames.bgr.data(), SIZE_MAX, &error),
                  ORVA_SHORT_PLANE, "size");
    if (sizeof(void*) == 4) {
        frames.source.width = frames.destination.width = UINT32_MAX;
        expectRefusal(error, frames.convert(nullptr, &error), ORVA_BAD_SIZE, "source.width");
    }
}

}  // namespace
