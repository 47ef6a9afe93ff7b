// The table of channels.
#include "channels.hpp"

namespace orva::tool {
namespace {

constexpr PlaneOf m = PlaneOf::main, c = PlaneOf::chroma, a = PlaneOf::alpha;

// Each ends with the alpha plane, which only formats with A8P have.
constexpr Channel uyvy[] = {{"Y", m, 1, 2}, {"Cb", m, 0, 4}, {"Cr", m, 2, 4}, {"A", a, 0, 1}};
constexpr Channel yuyv[] = {{"Y", m, 0, 2}, {"Cb", m, 1, 4}, {"Cr", m, 3, 4}, {"A", a, 0, 1}};
constexpr Channel uvyy[] = {{"Y", m, 2, 4, 2}, {"Cb", m, 0, 4}, {"Cr", m, 1, 4}, {"A", a, 0, 1}};
constexpr Channel semi[] = {{"Y", m, 0, 1}, {"Cb", c, 0, 2}, {"Cr", c, 1, 2}, {"A", a, 0, 1}};
constexpr Channel bgr24[] = {{"B", m, 0, 3}, {"G", m, 1, 3}, {"R", m, 2, 3}, {"A", a, 0, 1}};
constexpr Channel bgr32[] = {{"B", m, 0, 4}, {"G", m, 1, 4}, {"R", m, 2, 4}, {"A", m, 3, 4}};
constexpr Channel alpha[] = {{"A", m, 0, 1}};

}  // namespace

std::span<const Channel> channelsOf(Format format) {
    const FormatInfo& info = formatInfo(format);
    const std::size_t count = info.alphaPlane ? 4 : 3;
    switch (info.colour) {
    case Format::UYVY16I:
        return std::span(uyvy).first(count);
    case Format::YUYV16I:
        return std::span(yuyv).first(count);
    case Format::UVYY16I:
        return std::span(uvyy).first(count);
    case Format::Y8PUV8I:
        return std::span(semi).first(count);
    case Format::BGR24I:
        return std::span(bgr24).first(count);
    case Format::BGR32I:
        return bgr32;
    case Format::A8P:
        return alpha;
    default:
        return {};
    }
}

}  // namespace orva::tool
