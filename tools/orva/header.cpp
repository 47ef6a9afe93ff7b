// The text at the beginning of files.
#include "header.hpp"

#include "failure.hpp"

#include <algorithm>
#include <charconv>

namespace orva::tool {

std::string readLine(InputFile& file) {
    constexpr std::size_t most = 4096;
    std::string line;
    for (std::byte byte; line.size() < most && file.read({&byte, 1}) == 1;) {
        line += static_cast<char>(byte);
        if (byte == std::byte{'\n'}) {
            break;
        }
    }
    return line;
}

std::string printable(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c < ' ' || c > '~'; }, '?');
    return text;
}

std::optional<std::uint32_t> wholeNumber(std::string_view text) {
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && rest == end ? std::optional(value) : std::nullopt;
}

void failHeader(const InputFile& file) { throw Failure(file.name() + ": has a damaged header"); }

}  // namespace orva::tool
