// A picture of where two clips differ.
#pragma once

#include "channels.hpp"
#include "images.hpp"

#include <algorithm>

namespace orva::tool {

class Heatmap {
public:
    explicit Heatmap(FrameSize size);

    // A sample of row y, the i-th of its channel, differs by so much.
    void add(const Channel& channel, std::uint32_t i, std::uint32_t y, int difference) {
        std::uint16_t* const row = &greatest[std::size_t{y} * size.width];
        const std::uint32_t pixels = channel.subsampled() ? 2 : 1;
        for (std::uint32_t x = i * pixels; x < std::min(size.width, (i + 1) * pixels); ++x) {
            row[x] = std::max(row[x], static_cast<std::uint16_t>(difference));
        }
    }

    // Each pixel's greatest difference: black where there is none, from dark blue for 1 over red
    // and yellow to white for `scale`.
    void write(const std::string& name, int scale) const;

private:
    FrameSize size;
    std::vector<std::uint16_t> greatest;  // of all frames and channels
};

}  // namespace orva::tool
