// Formats by name: found in what was typed, and told as it was typed.
#pragma once

#include <orva/convert.hpp>

#include <cstddef>
#include <optional>
#include <string>

namespace orva::tool {

// The format with this name, which messages then call it by. Fails with a near name if there is
// none.
Format formatTyped(const std::string& text);

// Where names such as "bgrx" and "0rgb" have a byte that means nothing in each pixel, though it is
// the format's alpha.
std::optional<std::size_t> paddingTyped(const std::string& text);

// What the user calls the format; the library's name of one that was not typed.
std::string nameOf(Format format);

}  // namespace orva::tool
