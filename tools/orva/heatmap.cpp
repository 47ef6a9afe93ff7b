// The heatmap's colours.
#include "heatmap.hpp"

#include "frames.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

namespace orva::tool {
namespace {

using Colour = std::array<double, 3>;  // red, green, blue

// At equal distances along the scale. They grow brighter, and all can be told from black.
constexpr Colour colours[] = {{40, 40, 160},  {130, 30, 160}, {220, 50, 70},
                              {250, 150, 30}, {255, 230, 90}, {255, 255, 255}};

std::array<std::byte, 3> colourOf(int difference, int scale) {
    if (difference == 0) {
        return {};
    }
    const double place = scale > 1 ? (difference - 1.0) / (scale - 1) * (std::size(colours) - 1)
                                   : std::size(colours) - 1.0;
    const auto below = std::min(static_cast<std::size_t>(place), std::size(colours) - 2);
    const double rest = place - static_cast<double>(below);
    std::array<std::byte, 3> colour;
    for (std::size_t i = 0; i < colour.size(); ++i) {
        colour[i] = static_cast<std::byte>(
            std::lround(colours[below][i] * (1 - rest) + colours[below + 1][i] * rest));
    }
    return colour;
}

}  // namespace

Heatmap::Heatmap(FrameSize size) : size(size), greatest(std::size_t{size.width} * size.height) {}

void Heatmap::write(const std::string& name, int scale) const {
    Image picture = createImage(Format::RGB24I, size);
    const std::uint16_t* difference = greatest.data();
    forEachRow(picture.view(), [&](std::span<std::byte> row) {
        for (std::size_t x = 0; x < row.size(); x += 3) {
            std::ranges::copy(colourOf(*difference++, scale), row.begin() + x);
        }
    });
    OutputSettings settings;
    settings.format = Format::RGB24I;
    settings.size = size;
    const auto writer = createFrames(name, settings);
    writer->encodeAndWrite(std::as_const(picture).view());
    writer->commit();
}

}  // namespace orva::tool
