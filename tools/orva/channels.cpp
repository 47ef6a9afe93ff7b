// The table of channels of the plain formats.
#include "channels.hpp"

#include <cstddef>
#include <cstring>

namespace orva::tool {
namespace {

// Each ends with the channel that only some of its formats have.
constexpr Channel semiPlanar[] = {{"Y", mainPlane, 0, 1},
                                  {"Cb", chromaPlane, 0, 2},
                                  {"Cr", chromaPlane, 1, 2},
                                  {"A", alphaPlane, 0, 1}};
constexpr Channel planar[] = {
    {"Y", mainPlane, 0, 1}, {"Cb", chromaPlane, 0, 1}, {"Cr", crPlane, 0, 1}};
constexpr Channel bgr[] = {{"B", mainPlane, 0, 3},
                           {"G", mainPlane, 1, 3},
                           {"R", mainPlane, 2, 3},
                           {"A", alphaPlane, 0, 1}};
constexpr Channel alpha[] = {{"A", mainPlane, 0, 1}};

template <class Sample, class Byte>
Byte* firstSample(const BasicImageView<Byte>& image, const Channel& channel, std::uint32_t y) {
    const BasicPlane<Byte>& plane = planeOf(image, channel.plane);
    return plane.bytes.data() + static_cast<std::size_t>(plane.pitch) * y +
           channel.offset * sizeof(Sample);
}

template <class Sample>
void readAs(const ConstImageView& image, const Channel& channel, std::uint32_t y,
            SampleRow& samples) {
    const int mask = (1 << formatInfo(image.format).bits) - 1;  // other bits of a file may be set
    const std::byte* in = firstSample<Sample>(image, channel, y);
    for (std::uint16_t& sample : samples) {
        Sample value;
        std::memcpy(&value, in, sizeof value);
        sample = value & mask;
        in += channel.step * sizeof value;
    }
}

template <class Sample>
void writeAs(const ImageView& image, const Channel& channel, std::uint32_t y,
             const SampleRow& samples) {
    std::byte* out = firstSample<Sample>(image, channel, y);
    for (const std::uint16_t sample : samples) {
        const auto value = static_cast<Sample>(sample);
        std::memcpy(out, &value, sizeof value);
        out += channel.step * sizeof value;
    }
}

}  // namespace

Format plainFormat(Format format) {
    const FormatInfo& info = formatInfo(format);
    switch (info.model) {
    case Model::rgb:
        return info.hasAlpha ? Format::BGR24IA8P : Format::BGR24I;
    case Model::ycbcr:
        return info.bits > 8   ? Format::Y10PU10PV10P
               : info.hasAlpha ? Format::Y8PUV8IA8P
                               : Format::Y8PUV8I;
    default:
        return Format::A8P;
    }
}

std::span<const Channel> channelsOf(Format format) {
    switch (plainFormat(format)) {
    case Format::BGR24IA8P:
        return bgr;
    case Format::BGR24I:
        return std::span(bgr).first(3);
    case Format::Y8PUV8IA8P:
        return semiPlanar;
    case Format::Y8PUV8I:
        return std::span(semiPlanar).first(3);
    case Format::Y10PU10PV10P:
        return planar;
    default:
        return alpha;
    }
}

void readSamples(const ConstImageView& image, const Channel& channel, std::uint32_t y,
                 SampleRow& samples) {
    samples.resize(channel.count(image.width));
    const bool wide = formatInfo(image.format).bits > 8;
    (wide ? readAs<std::uint16_t> : readAs<std::uint8_t>)(image, channel, y, samples);
}

void writeSamples(const ImageView& image, const Channel& channel, std::uint32_t y,
                  const SampleRow& samples) {
    const bool wide = formatInfo(image.format).bits > 8;
    (wide ? writeAs<std::uint16_t> : writeAs<std::uint8_t>)(image, channel, y, samples);
}

}  // namespace orva::tool
