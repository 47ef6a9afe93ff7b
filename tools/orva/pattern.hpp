// A moving test chart, and its way into every format with arithmetic of its own, so that converting
// it shows what the library does.
#pragma once

#include <orva/convert.hpp>

#include <cstddef>
#include <cstdint>

namespace orva::tool {

// Memory that drawChart takes for every column.
constexpr std::size_t chartColumnBytes = 32;

// Draws frame number `frame` of the chart into an image of a plain format: colour bars, ramps of
// grey, red, green, blue and alpha, a zone plate and a marker that crosses the picture. Chroma is
// cosited.
void drawChart(const ImageView& image, std::uint32_t frame, Matrix matrix, Range range);

}  // namespace orva::tool
