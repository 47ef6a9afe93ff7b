// The text at the beginning of files.
#pragma once

#include "files.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orva::tool {

// The next line, with its '\n' if it ends within a length that is enough for all headers; empty at
// the end of the file.
std::string readLine(InputFile& file);

// Text of a file, for messages: without what a terminal could take for an order.
std::string printable(std::string text);

// A whole number in decimal digits and nothing else; empty if it is none, or above UINT32_MAX.
std::optional<std::uint32_t> wholeNumber(std::string_view text);

// Whatever the locale.
constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

[[noreturn]] void failHeader(const InputFile& file);

}  // namespace orva::tool
