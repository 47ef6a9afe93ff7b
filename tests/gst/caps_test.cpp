// Negotiation: what the element claims and chooses, and which matrix, range and chroma it takes
// from caps.
#include "gst/frames.hpp"

#include <gtest/gtest.h>

using namespace test;
using enum orva::Matrix;
using enum orva::Range;
using enum orva::Chroma;

namespace {

// What the element, in front of a receiver of `out`, takes of `in`; empty if nothing.
std::string taken(const std::string& in, const std::string& out) {
    Element element;
    gst_harness_set_sink_caps_str(element.harness, out.c_str());
    GstCaps* filter = gst_caps_from_string(in.c_str());
    GstCaps* caps = gst_pad_peer_query_caps(element.harness->srcpad, filter);
    gchar* text = gst_caps_to_string(caps);
    const std::string result = gst_caps_is_empty(caps) ? "" : text;
    g_free(text);
    gst_caps_unref(caps);
    gst_caps_unref(filter);
    return result;
}

struct Colours {
    const char *from, *fromFields, *to, *toFields;
    int height;
    orva::Options options;  // of the library, for the same
};

TEST(Caps, TellMatrixRangeAndChroma) {
    const Colours all[] = {
        // The height decides where nothing is declared.
        {"UYVY", "", "BGRA", "", 576, {bt601}},
        {"UYVY", "", "BGRA", "", 578, {bt709}},
        {"BGRA", "", "YUY2", "", 576, {bt709, bt601}},
        {"BGRA", "", "v210", "", 2160, {bt709, bt709}},
        // It is declared on either side, by name or in numbers.
        {"UYVY", "colorimetry=bt709", "BGRA", "", 8, {bt709}},
        {"UYVY", "colorimetry=1:4:0:0", "RGB", "", 8, {bt601, bt709, full}},
        {"v210", "colorimetry=bt2020", "RGB", "", 8, {bt2020}},
        {"I422_10LE", "colorimetry=bt2100-pq", "RGB", "", 8, {bt2020}},
        {"BGRA", "", "v210", "colorimetry=bt2020-10", 8, {bt709, bt2020}},
        {"BGR", "", "NV16", "colorimetry=1:3:5:1", 8, {bt709, bt709, studio, full}},
        {"BGRA", "colorimetry=sRGB", "UYVY", "colorimetry=bt709", 8, {bt709, bt709}},
        {"BGRA", "colorimetry=1:1:14:7", "v210", "colorimetry=bt2100-pq", 8, {bt709, bt2020}},
        {"UYVY", "colorimetry=bt601", "UYVY", "colorimetry=bt709", 8, {bt601, bt709}},
        {"UYVY",
         "colorimetry=bt709",
         "v210",
         "colorimetry=1:4:16:4",
         8,
         {bt709, bt601, studio, full}},
        {"UYVY", "colorimetry=bt709", "v210", "colorimetry=2:3:5:1", 8, {bt709, bt709}},
        {"UYVY", "colorimetry=1:3:5:1", "v210", "", 8, {bt709, bt709, full, full}},
        {"v210", "colorimetry=1:3:5:1", "UYVY", "", 8, {bt709, bt709, full, full}},
        // Where samples only move, any matrix does.
        {"UYVY", "colorimetry=smpte240m", "NV16", "", 8, {}},
        {"UYVY", "colorimetry=2:5:6:5", "NV16", "", 8, {}},
        // Chroma in the middle of a pair is nearest to both pixels.
        {"UYVY", "chroma-site=mpeg2", "BGRA", "", 8, {bt601}},
        {"UYVY", "chroma-site=jpeg", "BGRA", "", 8, {bt601, bt709, studio, studio, nearest}},
        {"BGRA", "", "UYVY", "chroma-site=cosited", 8, {bt709, bt601}},
    };
    Random random(10);
    for (const Colours& colours : all) {
        const std::string in = capsOf(colours.from, 36, colours.height, colours.fromFields);
        const std::string out = capsOf(colours.to, 36, colours.height, colours.toFields);
        Element element(in, out);
        const Buffer frame = plainFrame(in, random);
        EXPECT_TRUE(isConverted(frame, in, element(frame), out, colours.options))
            << in << " to " << element.outCaps();
        EXPECT_NE(taken(in, out), "") << in << " to " << out;
    }
}

TEST(Caps, ClaimNothingThatCannotBeDone) {
    const Colours none[] = {
        {"v210", "colorimetry=bt2100-pq", "BGRA", "colorimetry=sRGB", 8, {}},
        {"v210", "colorimetry=bt2020", "UYVY", "colorimetry=bt709", 8, {}},
        {"UYVY", "colorimetry=bt709", "v210", "colorimetry=bt2020", 8, {}},
        {"BGRA", "colorimetry=sRGB", "v210", "colorimetry=bt2100-hlg", 8, {}},
        {"UYVY", "colorimetry=smpte240m", "BGRA", "", 8, {}},
        {"UYVY", "colorimetry=smpte240m", "UYVY", "colorimetry=bt709", 8, {}},
        {"BGRA", "colorimetry=2:1:5:1", "UYVY", "", 8, {}},
        {"BGRA", "", "UYVY", "chroma-site=jpeg", 8, {}},
        {"UYVY", "chroma-site=mpeg2", "YUY2", "chroma-site=jpeg", 8, {}},
        {"I420", "", "BGRA", "", 8, {}},
        {"BGRA", "", "GRAY8", "", 8, {}},
    };
    for (const Colours& colours : none) {
        const std::string in = capsOf(colours.from, 36, colours.height, colours.fromFields);
        const std::string out = capsOf(colours.to, 36, colours.height, colours.toFields);
        EXPECT_EQ(taken(in, out), "") << in << " to " << out;
    }
    EXPECT_EQ(taken(capsOf("BGRA", 36, 8), capsOf("UYVY", 34, 8)), "") << "another size";
    EXPECT_EQ(taken("video/x-raw(memory:GLMemory),format=BGRA", "video/x-raw,format=UYVY"), "");
    EXPECT_NE(taken("video/x-raw(memory:GLMemory),format=BGRA",
                    "video/x-raw(memory:GLMemory),format=BGRA"),
              "");
}

TEST(Caps, ChooseTheFormatThatCostsLeast) {
    const auto chosen = [](const char* from, const char* offered) {
        Element element(capsOf(from, 36, 8), std::string("video/x-raw,format=") + offered);
        Random random(11);
        element(plainFrame(capsOf(from, 36, 8), random));
        GstCaps* caps = gst_pad_get_current_caps(element.harness->sinkpad);
        const std::string format =
            gst_structure_get_string(gst_caps_get_structure(caps, 0), "format");
        gst_caps_unref(caps);
        return format;
    };
    EXPECT_EQ(chosen("UYVY", "{BGRA,UYVY}"), "UYVY");
    EXPECT_EQ(chosen("UYVY", "{BGRA,v210,YUY2}"), "YUY2");
    EXPECT_EQ(chosen("v210", "{UYVY,I422_10LE,BGRA}"), "I422_10LE");
    EXPECT_EQ(chosen("BGRA", "{RGB,UYVY,ARGB}"), "ARGB");
    EXPECT_EQ(chosen("RGB", "{ARGB,BGRx}"), "BGRx");
}

// Rate, aspect, interlacing and whatever else caps tell stay; what is not about colour any more
// goes.
TEST(Caps, KeepTheRest) {
    const std::string rest = "pixel-aspect-ratio=(fraction)12/11,interlace-mode=(string)mixed,"
                             "multiview-mode=(string)mono,anything=(int)5";
    Element element(capsOf("UYVY", 36, 8, rest + ",chroma-site=mpeg2,colorimetry=bt709"),
                    "video/x-raw,format=BGRA");
    const std::string expected = capsOf("BGRA", 36, 8, rest + ",colorimetry=1:1:5:1");
    GstCaps* caps = gst_caps_from_string(expected.c_str());
    GstCaps* made = gst_pad_get_current_caps(element.harness->sinkpad);
    EXPECT_TRUE(gst_caps_is_equal(made, caps)) << element.outCaps();
    gst_caps_unref(made);
    gst_caps_unref(caps);
}

}  // namespace
