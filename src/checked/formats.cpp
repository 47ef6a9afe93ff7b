// The table of formats and the look-up by name.
#include <orva/convert.hpp>

#include <algorithm>
#include <array>

namespace orva {
namespace {

constexpr bool pairs = true, chroma = true, alpha = true;
constexpr bool none = false;

constexpr std::array<FormatInfo, 13> table = {{
    {Format::UYVY16I, "UYVY16I", "uyvy422 uyvy 2vuy", Format::UYVY16I, 2, pairs, none, none},
    {Format::YUYV16I, "YUYV16I", "yuyv422 yuyv yuy2", Format::YUYV16I, 2, pairs, none, none},
    {Format::UVYY16I, "UVYY16I", "", Format::UVYY16I, 2, pairs, none, none},
    {Format::Y8PUV8I, "Y8PUV8I", "nv16", Format::Y8PUV8I, 1, pairs, chroma, none},
    {Format::BGR32I, "BGR32I", "bgra bgr0", Format::BGR32I, 4, none, none, none},
    {Format::BGR24I, "BGR24I", "bgr24", Format::BGR24I, 3, none, none, none},
    {Format::A8P, "A8P", "gray gray8", Format::A8P, 1, none, none, none},
    {Format::UYVY16IA8P, "UYVY16IA8P", "", Format::UYVY16I, 2, pairs, none, alpha},
    {Format::YUYV16IA8P, "YUYV16IA8P", "", Format::YUYV16I, 2, pairs, none, alpha},
    {Format::UVYY16IA8P, "UVYY16IA8P", "", Format::UVYY16I, 2, pairs, none, alpha},
    {Format::Y8PUV8IA8P, "Y8PUV8IA8P", "", Format::Y8PUV8I, 1, pairs, chroma, alpha},
    {Format::BGR24IA8P, "BGR24IA8P", "", Format::BGR24I, 3, none, none, alpha},
    {Format::A8C, "A8C", "", Format::A8C, 0, none, none, none},
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
    return table[static_cast<std::size_t>(format)];
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

}  // namespace orva
