// What kinds of files there are, and how one is recognised.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <utility>

namespace orva::tool {

// Raw frames, a Y4M clip, or a picture of one frame. Whatever says P5, P6 or P7 is read alike.
enum class FileKind { raw, y4m, png, ppm, pgm, pam };

// By their own names: "raw" or an ending without the dot.
inline constexpr std::array fileKinds = {
    std::pair{"raw", FileKind::raw}, std::pair{"y4m", FileKind::y4m},
    std::pair{"png", FileKind::png}, std::pair{"ppm", FileKind::ppm},
    std::pair{"pgm", FileKind::pgm}, std::pair{"pam", FileKind::pam}};

constexpr bool isPicture(FileKind kind) { return kind >= FileKind::png; }

// By the ending of a file's name: raw where it says nothing. Fails where it is the ending of files
// that the program does not know, which are no raw frames.
FileKind kindOfName(const std::string& name);

// Y4M and PNG by their first bytes, which no raw frames begin with; the others by their name, or by
// their first bytes where `mayBeRaw` is false.
FileKind kindOfContents(const std::string& name, std::span<const std::byte> head, bool mayBeRaw);
constexpr std::size_t kindHeadBytes = 10;

}  // namespace orva::tool
