// A moving test chart.
#include "pattern.hpp"

#include "channels.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace orva::tool {
namespace {

struct Pixel {
    double red, green, blue, alpha;  // 0..255
};

constexpr Pixel grey(double level) { return {level, level, level, 255}; }

constexpr std::array<Pixel, 8> bars = {{{255, 255, 255, 255},
                                        {255, 255, 0, 255},
                                        {0, 255, 255, 255},
                                        {0, 255, 0, 255},
                                        {255, 0, 255, 255},
                                        {255, 0, 0, 255},
                                        {0, 0, 255, 255},
                                        {0, 0, 0, 255}}};

class Chart {
public:
    Chart(std::uint32_t width, std::uint32_t height, std::uint32_t frame)
        : width(width), height(height), frame(frame), bandHeight(std::max(1u, height / 16)) {
        for (std::size_t i = 0; i < wave.size(); ++i) {
            wave[i] = 127.5 + 127.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) /
                                               static_cast<double>(wave.size()));
        }
    }

    // Bars over the upper half, then five ramps, then the zone plate; the marker runs over all.
    Pixel at(std::uint32_t x, std::uint32_t y) const {
        if ((x + width - frame * 4 % width) % width < markerWidth) {
            return grey(y / markerWidth % 2 == 0 ? 255 : 0);
        }
        if (y < height / 2) {
            return bars[std::size_t{x} * bars.size() / width];
        }
        const std::uint32_t band = (y - height / 2) / bandHeight;
        return band < 5 ? ramp(band, x) : zonePlate(x, y);
    }

private:
    static constexpr std::uint32_t markerWidth = 8;

    Pixel ramp(std::uint32_t band, std::uint32_t x) const {
        const double level = std::floor(256.0 * ((x + frame * 2) % width) / width);
        switch (band) {
        case 0:
            return grey(level);
        case 1:
            return {level, 0, 0, 255};
        case 2:
            return {0, level, 0, 255};
        case 3:
            return {0, 0, level, 255};
        default:
            return {255, 255, 255, level};
        }
    }

    // Circles that grow finer outwards, up to half a wave per pixel at the sides.
    Pixel zonePlate(std::uint32_t x, std::uint32_t y) const {
        const double dx = x - width * 0.5;
        const double dy = y - height * (0.5 + 5.0 / 16 + 3.0 / 32);
        const double turns = (dx * dx + dy * dy) / (2.0 * width) + frame / 16.0;
        const auto index = static_cast<std::size_t>(turns * static_cast<double>(wave.size()));
        return grey(wave[index % wave.size()]);
    }

    std::uint32_t width, height, frame, bandHeight;
    std::array<double, 1024> wave;
};

std::byte toByte(double value) {
    return static_cast<std::byte>(std::lround(std::clamp(value, 0.0, 255.0)));
}

// A pixel's luma and colour differences from the definitions of BT.601 and BT.709.
class ToYcbcr {
public:
    ToYcbcr(Matrix matrix, Range range)
        : red(matrix == Matrix::bt601 ? 0.299 : 0.2126),
          blue(matrix == Matrix::bt601 ? 0.114 : 0.0722),
          lumaScale(range == Range::full ? 1 : 219.0 / 255),
          lumaOffset(range == Range::full ? 0 : 16) {}

    double luma(const Pixel& p) const { return lumaOffset + lumaScale * weighted(p); }
    double cb(const Pixel& p) const { return chroma(p.blue - weighted(p), blue); }
    double cr(const Pixel& p) const { return chroma(p.red - weighted(p), red); }

private:
    double weighted(const Pixel& p) const {
        return red * p.red + (1 - red - blue) * p.green + blue * p.blue;
    }
    static double chroma(double difference, double weight) {
        return 128 + 112.0 / 255 * difference / (1 - weight);
    }

    double red, blue, lumaScale, lumaOffset;
};

double sample(const Channel& channel, const Pixel& pixel, const ToYcbcr& convert) {
    switch (channel.name.front()) {
    case 'B':
        return pixel.blue;
    case 'G':
        return pixel.green;
    case 'R':
        return pixel.red;
    case 'A':
        return pixel.alpha;
    case 'Y':
        return convert.luma(pixel);
    default:
        return channel.name == "Cb" ? convert.cb(pixel) : convert.cr(pixel);
    }
}

}  // namespace

void drawChart(const ImageView& image, std::uint32_t frame, Matrix matrix, Range range) {
    const Chart chart(image.width, image.height, frame);
    const ToYcbcr convert(matrix, range);
    std::vector<Pixel> pixels(image.width);
    for (std::uint32_t y = 0; y < image.height; ++y) {
        for (std::uint32_t x = 0; x < image.width; ++x) {
            pixels[x] = chart.at(x, y);
        }
        for (const Channel& channel : channelsOf(image.format)) {
            const Samples row = samplesOf(image, channel, y);
            if (channel.subsampled()) {
                for (std::uint32_t x = 0; x + 1 < image.width; x += 2) {
                    row[x / 2] = toByte((sample(channel, pixels[x], convert) +
                                         sample(channel, pixels[x + 1], convert)) /
                                        2);
                }
            } else {
                for (std::uint32_t x = 0; x < image.width; ++x) {
                    row[x] = toByte(sample(channel, pixels[x], convert));
                }
            }
        }
    }
}

}  // namespace orva::tool
