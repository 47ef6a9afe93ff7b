// A moving test chart, and its way into every format with arithmetic of its own, so that converting
// it shows what the library does.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>

namespace orva::tool {

// Draws frame number `frame` of the chart: colour bars, ramps of grey, red, green, blue and alpha,
// a zone plate and a marker that crosses the picture. Full range is the library's: luma from 0 to
// 255 and chroma from 16 to 240.
void drawChart(const ImageView& image, std::uint32_t frame, Matrix matrix, Range range);

}  // namespace orva::tool
