// The text at the beginning of files.
#include "header.hpp"

#include "failure.hpp"

#include <charconv>

namespace orva::tool {

std::optional<std::string> readLine(InputFile& file) {
    constexpr std::size_t most = 4096;
    std::string line;
    for (std::byte byte; file.read({&byte, 1}) == 1;) {
        if (byte == std::byte{'\n'}) {
            return line;
        }
        if (line.size() == most) {
            failHeader(file);
        }
        line += static_cast<char>(byte);
    }
    if (!line.empty()) {
        failHeader(file);
    }
    return std::nullopt;
}

std::optional<std::uint32_t> wholeNumber(std::string_view text) {
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && rest == end ? std::optional(value) : std::nullopt;
}

void failHeader(const InputFile& file) { throw Failure(file.name() + ": has a damaged header"); }

}  // namespace orva::tool
