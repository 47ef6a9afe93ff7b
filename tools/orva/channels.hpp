// The samples of an image, channel by channel. Only a few plain formats need to be known for that:
// every format becomes one of them, and comes from it, without a sample being changed.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace orva::tool {

// The plain format that keeps all samples of this one.
Format plainFormat(Format format);

struct Channel {
    std::string_view name;  // Y, Cb, Cr, B, G, R or A
    PlaneIndex plane;
    std::uint8_t offset;  // samples before the channel's first one in a row
    std::uint8_t step;    // samples from one to the next

    bool subsampled() const { return name.size() == 2; }  // one sample for two pixels

    // How many of them a row has.
    std::uint32_t count(std::uint32_t width) const {
        return subsampled() ? width / 2 + width % 2 : width;
    }
};

// The channels in the order Y Cb Cr A or B G R A.
std::span<const Channel> channelsOf(Format format);

using SampleRow = std::vector<std::uint16_t>;

// A row of an image of a plain format, whose rows run downwards as those of Image do.
void readSamples(const ConstImageView& image, const Channel& channel, std::uint32_t y,
                 SampleRow& samples);
void writeSamples(const ImageView& image, const Channel& channel, std::uint32_t y,
                  const SampleRow& samples);

}  // namespace orva::tool
