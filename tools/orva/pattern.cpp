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
static_assert(sizeof(Pixel) == chartColumnBytes);

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
        const std::uint32_t marker = frame * 4 % width;  // its left column
        if ((x >= marker ? x - marker : x + (width - marker)) < markerWidth) {
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
        const std::uint32_t shift = frame * 2 % width;
        const std::uint32_t column = x < width - shift ? x + shift : x - (width - shift);
        const double level = std::floor(256.0 * column / width);
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

struct Weights {
    double red, blue;
};

constexpr Weights weightsOf(Matrix matrix) {
    switch (matrix) {
    case Matrix::bt601:
        return {0.299, 0.114};
    case Matrix::bt709:
        return {0.2126, 0.0722};
    default:
        return {0.2627, 0.0593};
    }
}

// A pixel's codes from the definitions of BT.601, BT.709 and BT.2020.
class Codes {
public:
    Codes(Matrix matrix, Range range, int bits)
        : weights(weightsOf(matrix)), full(range == Range::full), bits(bits) {}

    double of(const Channel& channel, const Pixel& pixel) const {
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
            return luma(pixel);
        default:
            return channel.name == "Cb" ? chroma(pixel.blue - grey(pixel), weights.blue)
                                        : chroma(pixel.red - grey(pixel), weights.red);
        }
    }

    std::uint16_t round(double code) const {
        return static_cast<std::uint16_t>(std::lround(std::clamp(code, 0.0, greatest())));
    }

private:
    double grey(const Pixel& p) const {
        return weights.red * p.red + (1 - weights.red - weights.blue) * p.green +
               weights.blue * p.blue;
    }
    double luma(const Pixel& p) const {
        return full ? grey(p) / 255 * greatest() : std::ldexp(16 + grey(p) / 255 * 219, bits - 8);
    }
    double chroma(double difference, double weight) const {
        const double c = difference / 255 / (2 * (1 - weight));
        return full ? std::ldexp(1, bits - 1) + c * greatest()
                    : std::ldexp(128 + c * 224, bits - 8);
    }
    double greatest() const { return std::ldexp(1, bits) - 1; }

    Weights weights;
    bool full;
    int bits;
};

}  // namespace

void drawChart(const ImageView& image, std::uint32_t frame, Matrix matrix, Range range) {
    const Chart chart(image.width, image.height, frame);
    const Codes codes(matrix, range, formatInfo(image.format).bits);
    std::vector<Pixel> pixels(image.width);
    SampleRow samples;
    for (std::uint32_t y = 0; y < image.height; ++y) {
        for (std::uint32_t x = 0; x < image.width; ++x) {
            pixels[x] = chart.at(x, y);
        }
        for (const Channel& channel : channelsOf(image.format)) {
            const auto code = [&](std::uint32_t x) { return codes.of(channel, pixels[x]); };
            samples.resize(channel.count(image.width));
            for (std::uint32_t i = 0; i < samples.size(); ++i) {
                const std::uint32_t x = i * 2;
                samples[i] = codes.round(channel.subsampled()
                                             ? code(x > 0 ? x - 1 : 0) / 4 + code(x) / 2 +
                                                   code(std::min(x + 1, image.width - 1)) / 4
                                             : code(i));
            }
            writeSamples(image, channel, y, samples);
        }
    }
}

}  // namespace orva::tool
