// Where each format keeps the samples of each of its channels.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>
#include <span>
#include <string_view>

namespace orva::tool {

enum class PlaneOf : std::uint8_t { main, chroma, alpha };

// Samples come in groups of neighbours; groups are `step` bytes apart.
struct Channel {
    std::string_view name;  // Y, Cb, Cr, B, G, R or A
    PlaneOf plane;
    std::uint8_t offset;  // of a row's first sample
    std::uint8_t step;
    std::uint8_t group = 1;

    bool subsampled() const { return name.size() == 2; }  // one sample for two pixels
};

// The channels in the order Y Cb Cr A or B G R A.
std::span<const Channel> channelsOf(Format format);

// The samples of one channel in one row.
template <class Byte> class Samples {
public:
    Samples(Byte* first, const Channel& channel)
        : first(first + channel.offset), channel(channel) {}

    Byte& operator[](std::uint32_t index) const {
        return first[std::size_t{index / channel.group} * channel.step + index % channel.group];
    }

private:
    Byte* first;
    const Channel& channel;
};

template <class Byte>
const BasicPlane<Byte>& planeOf(const BasicImageView<Byte>& image, PlaneOf plane) {
    return plane == PlaneOf::main     ? image.main
           : plane == PlaneOf::chroma ? image.chroma
                                      : image.alpha;
}

// Of an image whose rows run downwards, as those of Image do.
template <class Byte>
Samples<Byte> samplesOf(const BasicImageView<Byte>& image, const Channel& channel,
                        std::uint32_t y) {
    const auto& plane = planeOf(image, channel.plane);
    return {plane.bytes.data() + static_cast<std::size_t>(plane.pitch) * y, channel};
}

}  // namespace orva::tool
