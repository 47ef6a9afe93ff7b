// What tests of the element share: frames in GStreamer's buffers, the element between two ends, and
// the library's own result to compare with.
#pragma once

#include "support/data.hpp"

#include <gst/check/gstharness.h>
#include <gst/video/video.h>
#include <orva/convert.hpp>

#include <memory>
#include <string>
#include <vector>

namespace test {

struct NamedFormat {
    const char* name;
    orva::Format orva;
    int padding = -1;  // where a pixel has a byte that means nothing
};
inline constexpr NamedFormat namedFormats[] = {
    {"UYVY", orva::Format::UYVY16I},    {"YUY2", orva::Format::YUYV16I},
    {"NV16", orva::Format::Y8PUV8I},    {"Y42B", orva::Format::Y8PU8PV8P},
    {"v210", orva::Format::V210},       {"I422_10LE", orva::Format::Y10PU10PV10P},
    {"BGRA", orva::Format::BGR32I},     {"RGBA", orva::Format::RGB32I},
    {"ARGB", orva::Format::ARGB32I},    {"ABGR", orva::Format::ABGR32I},
    {"BGR", orva::Format::BGR24I},      {"RGB", orva::Format::RGB24I},
    {"BGRx", orva::Format::BGR32I, 3},  {"RGBx", orva::Format::RGB32I, 3},
    {"xRGB", orva::Format::ARGB32I, 0}, {"xBGR", orva::Format::ABGR32I, 0}};
const NamedFormat& formatNamed(const std::string& name);

struct FreeBuffer {
    void operator()(GstBuffer* buffer) const { gst_buffer_unref(buffer); }
};
using Buffer = std::unique_ptr<GstBuffer, FreeBuffer>;

// "video/x-raw,format=<format>,width=<width>,height=<height>" and more fields.
std::string capsOf(const std::string& format, int width, int height, const std::string& more = "");

// A frame of noise and extremes, laid out as GStreamer does it without GstVideoMeta.
Buffer plainFrame(const std::string& caps, Random& random);

// The same with planes at any offsets and strides, in one memory or in one for each plane.
Buffer paddedFrame(const std::string& caps, Random& random, bool isInPieces);

// The element with fixed caps on its two ends; `out` may leave open what it likes.
class Element {
public:
    explicit Element(const std::string& properties = "");
    Element(const std::string& in, const std::string& out, const std::string& properties = "");
    ~Element() { gst_harness_teardown(harness); }
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    // What comes out for a frame, of which the caller keeps its own reference.
    Buffer operator()(const Buffer& frame);

    // The caps that go out now.
    std::string outCaps() const;

    GstHarness* harness;
};

// Whether `out` is what the library makes of `in` with these options. Fourth bytes of source pixels
// that are no alpha count as the option's alpha.
bool isConverted(const Buffer& in, const std::string& inCaps, const Buffer& out,
                 const std::string& outCaps, const orva::Options& options);

}  // namespace test
