// The endings and first bytes of files.
#include "file_kind.hpp"

#include "failure.hpp"
#include "file_names.hpp"
#include "header.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string_view>

namespace orva::tool {
namespace {

using namespace std::string_view_literals;

// Pictures, clips and sound of other programs. Endings that people give raw frames (.yuv, .v210,
// .rgb, .bin ...) are none of them.
constexpr std::array foreign = {"avi"sv, "avif"sv, "bmp"sv,  "dng"sv,  "dpx"sv,  "exr"sv,  "flac"sv,
                                "flv"sv, "gif"sv,  "heic"sv, "heif"sv, "ico"sv,  "j2c"sv,  "j2k"sv,
                                "jp2"sv, "jpe"sv,  "jpeg"sv, "jpg"sv,  "jxl"sv,  "m2ts"sv, "m4v"sv,
                                "mkv"sv, "mov"sv,  "mp3"sv,  "mp4"sv,  "mpeg"sv, "mpg"sv,  "mxf"sv,
                                "ogv"sv, "pbm"sv,  "pdf"sv,  "pfm"sv,  "psd"sv,  "svg"sv,  "tga"sv,
                                "tif"sv, "tiff"sv, "wav"sv,  "webm"sv, "webp"sv, "wmv"sv};

// In lower case, without the dot.
std::string endingOf(const std::string& name) {
    std::string ending = pathOf(name).extension().string();
    std::ranges::transform(ending, ending.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending.substr(ending.empty() ? 0 : 1);
}

}  // namespace

FileKind kindOfName(const std::string& name) {
    const std::string ending = endingOf(name);
    if (std::ranges::find(foreign, ending) != foreign.end()) {
        throw Failure(name + ": ." + ending +
                      " files are not known here; .y4m, .png, .ppm, .pgm and .pam are, and other "
                      "names are raw frames");
    }
    const auto found =
        std::ranges::find(fileKinds, ending, &decltype(fileKinds)::value_type::first);
    return found == fileKinds.end() ? FileKind::raw : found->second;
}

FileKind kindOfContents(const std::string& name, std::span<const std::byte> head, bool mayBeRaw) {
    const std::string_view text(reinterpret_cast<const char*>(head.data()), head.size());
    if (text.starts_with("YUV4MPEG2 ")) {
        return FileKind::y4m;
    }
    if (text.starts_with("\x89PNG\r\n\x1a\n")) {
        return FileKind::png;
    }
    const FileKind named = kindOfName(name);
    const bool pnm =
        text.size() > 2 && text[0] == 'P' && text[1] >= '5' && text[1] <= '7' && isSpace(text[2]);
    return named == FileKind::raw && pnm && !mayBeRaw ? FileKind::ppm : named;
}

}  // namespace orva::tool
