// The table of formats.
#include "formats.hpp"

#include <algorithm>

namespace orva::gst {
namespace {

using enum orva::Format;

constexpr Format table[] = {
    {GST_VIDEO_FORMAT_UYVY, UYVY16I, false}, {GST_VIDEO_FORMAT_YUY2, YUYV16I, false},
    {GST_VIDEO_FORMAT_NV16, Y8PUV8I, false}, {GST_VIDEO_FORMAT_Y42B, Y8PU8PV8P, false},
    {GST_VIDEO_FORMAT_v210, V210, false},    {GST_VIDEO_FORMAT_I422_10LE, Y10PU10PV10P, false},
    {GST_VIDEO_FORMAT_BGRA, BGR32I, false},  {GST_VIDEO_FORMAT_BGRx, BGR32I, true},
    {GST_VIDEO_FORMAT_RGBA, RGB32I, false},  {GST_VIDEO_FORMAT_RGBx, RGB32I, true},
    {GST_VIDEO_FORMAT_ARGB, ARGB32I, false}, {GST_VIDEO_FORMAT_xRGB, ARGB32I, true},
    {GST_VIDEO_FORMAT_ABGR, ABGR32I, false}, {GST_VIDEO_FORMAT_xBGR, ABGR32I, true},
    {GST_VIDEO_FORMAT_BGR, BGR24I, false},   {GST_VIDEO_FORMAT_RGB, RGB24I, false},
};

bool hasAlpha(const Format& format) {
    return formatInfo(format.orva).hasAlpha && !format.hasPadding;
}

}  // namespace

std::span<const Format> formats() { return table; }

const Format* formatOf(GstVideoFormat format) {
    const auto* entry = std::ranges::find(table, format, &Format::gstreamer);
    return entry == std::ranges::end(table) ? nullptr : entry;
}

int costOf(const Format& from, const Format& to) {
    if (from.gstreamer == to.gstreamer) {
        return 0;
    }
    const int bits = formatInfo(to.orva).bits - formatInfo(from.orva).bits;
    return 1 + 32 * (modelOf(from) != modelOf(to)) + 16 * (bits < 0) +
           8 * (hasAlpha(from) && !hasAlpha(to)) + 4 * (bits > 0) +
           2 * (!hasAlpha(from) && hasAlpha(to));
}

}  // namespace orva::gst
