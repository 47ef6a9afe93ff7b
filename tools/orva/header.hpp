// The text at the beginning of files.
#pragma once

#include "files.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orva::tool {

// The next line, without its end; empty at the end of the file. Fails if it does not end, or not
// within a length that no header needs.
std::optional<std::string> readLine(InputFile& file);

// A whole number in decimal digits and nothing else; empty if it is none, or above UINT32_MAX.
std::optional<std::uint32_t> wholeNumber(std::string_view text);

// Whatever the locale.
constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

[[noreturn]] void failHeader(const InputFile& file);

}  // namespace orva::tool
