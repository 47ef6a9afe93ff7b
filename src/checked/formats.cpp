// The table of formats, the look-up by name, and which pairs convert.
#include "picture/units.hpp"

#include <orva/convert.hpp>

#include <algorithm>
#include <array>

namespace orva {
namespace {

constexpr PlaneInfo none{}, alphaBytes{1, 1};

using Planes = std::array<PlaneInfo, planeCount>;

// Planes in the order of PlaneIndex.
constexpr Planes packed{{{4, 2}, none, none, none}};
constexpr Planes semiPlanar{{{2, 2}, {2, 2}, none, none}};
constexpr Planes pixels32{{{4, 1}, none, none, none}};
constexpr Planes pixels24{{{3, 1}, none, none, none}};

constexpr Planes withAlpha(Planes planes) {
    planes[alphaPlane] = alphaBytes;
    return planes;
}

constexpr Model alpha = Model::alpha, rgb = Model::rgb, ycbcr = Model::ycbcr;

constexpr std::array<FormatInfo, 22> table = {{
    {Format::UYVY16I, "UYVY16I", "uyvy422 uyvy 2vuy hdyc", Format::UYVY16I, ycbcr, 8, false,
     packed},
    {Format::YUYV16I, "YUYV16I", "yuyv422 yuyv yuy2", Format::YUYV16I, ycbcr, 8, false, packed},
    {Format::UVYY16I, "UVYY16I", "", Format::UVYY16I, ycbcr, 8, false, packed},
    {Format::Y8PUV8I, "Y8PUV8I", "nv16", Format::Y8PUV8I, ycbcr, 8, false, semiPlanar},
    {Format::BGR32I, "BGR32I", "bgra bgrx bgr0", Format::BGR32I, rgb, 8, true, pixels32},
    {Format::BGR24I, "BGR24I", "bgr24 bgr", Format::BGR24I, rgb, 8, false, pixels24},
    {Format::A8P, "A8P", "gray gray8", Format::A8P, alpha, 8, true, {{alphaBytes}}},
    {Format::UYVY16IA8P, "UYVY16IA8P", "uyva", Format::UYVY16I, ycbcr, 8, true, withAlpha(packed)},
    {Format::YUYV16IA8P, "YUYV16IA8P", "", Format::YUYV16I, ycbcr, 8, true, withAlpha(packed)},
    {Format::UVYY16IA8P, "UVYY16IA8P", "", Format::UVYY16I, ycbcr, 8, true, withAlpha(packed)},
    {Format::Y8PUV8IA8P, "Y8PUV8IA8P", "", Format::Y8PUV8I, ycbcr, 8, true, withAlpha(semiPlanar)},
    {Format::BGR24IA8P, "BGR24IA8P", "", Format::BGR24I, rgb, 8, true, withAlpha(pixels24)},
    {Format::A8C, "A8C", "", Format::A8C, alpha, 8, true, {}},
    {Format::RGB24I, "RGB24I", "rgb24 rgb", Format::RGB24I, rgb, 8, false, pixels24},
    {Format::RGB32I, "RGB32I", "rgba rgbx rgb0", Format::RGB32I, rgb, 8, true, pixels32},
    {Format::ARGB32I, "ARGB32I", "argb xrgb 0rgb", Format::ARGB32I, rgb, 8, true, pixels32},
    {Format::ABGR32I, "ABGR32I", "abgr xbgr 0bgr", Format::ABGR32I, rgb, 8, true, pixels32},
    {Format::Y8PU8PV8P,
     "Y8PU8PV8P",
     "yuv422p i422 y42b",
     Format::Y8PU8PV8P,
     ycbcr,
     8,
     false,
     {{{2, 2}, {1, 2}, {1, 2}, none}}},
    {Format::V210, "V210", "", Format::V210, ycbcr, 10, false, {{{16, 6}, none, none, none}}},
    {Format::Y10PUV10I,
     "Y10PUV10I",
     "p210le p210",
     Format::Y10PUV10I,
     ycbcr,
     10,
     false,
     {{{4, 2}, {4, 2}, none, none}}},
    {Format::Y10PU10PV10P,
     "Y10PU10PV10P",
     "yuv422p10le yuv422p10 i422-10le",
     Format::Y10PU10PV10P,
     ycbcr,
     10,
     false,
     {{{4, 2}, {2, 2}, {2, 2}, none}}},
    {Format::RGB24IA8P, "RGB24IA8P", "", Format::RGB24I, rgb, 8, true, withAlpha(pixels24)},
}};

static_assert([] {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].format != static_cast<Format>(i)) {
            return false;
        }
    }
    return true;
}());

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool sameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

constexpr bool listHolds(std::string_view list, std::string_view name) {
    while (!list.empty()) {
        const auto end = std::min(list.find(' '), list.size());
        if (sameName(list.substr(0, end), name)) {
            return true;
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

}  // namespace

const FormatInfo& formatInfo(Format format) noexcept {
    const auto index = static_cast<std::size_t>(format);
    return table[index < table.size() ? index : static_cast<std::size_t>(Format::A8C)];
}

std::span<const FormatInfo> formats() noexcept { return table; }

std::optional<Format> formatNamed(std::string_view name) noexcept {
    for (const FormatInfo& info : table) {
        if (sameName(info.name, name) || listHolds(info.otherNames, name)) {
            return info.format;
        }
    }
    return std::nullopt;
}

std::uint64_t rowBytes(Format format, PlaneIndex plane, std::uint32_t width) noexcept {
    const PlaneInfo info = plane < planeCount ? formatInfo(format).planes[plane] : none;
    return bytesOfUnits<std::uint64_t>(info, width);
}

bool canConvert(Format source, Format destination) noexcept {
    const FormatInfo &from = formatInfo(source), &to = formatInfo(destination);
    if (from.format != source || to.format != destination || destination == Format::A8C) {
        return false;
    }
    return to.model == Model::alpha ? from.hasAlpha : from.model != Model::alpha;
}

std::vector<Conversion> conversions() {
    std::vector<Conversion> pairs;
    for (const FormatInfo& source : table) {
        for (const FormatInfo& destination : table) {
            if (canConvert(source.format, destination.format)) {
                pairs.push_back({source.format, destination.format});
            }
        }
    }
    return pairs;
}

}  // namespace orva
