// orva info: what is in a file, channel by channel.
#include "channels.hpp"
#include "commands.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

namespace orva::tool {
namespace {

using Histogram = std::array<std::uint64_t, 256>;

void print(const Channel& channel, const Histogram& counts) {
    std::uint64_t all = 0, sum = 0, outside = 0;
    std::size_t least = 255, greatest = 0;
    const bool luma = channel.name == "Y";
    const std::size_t highest = luma ? 235 : 240;
    for (std::size_t value = 0; value < counts.size(); ++value) {
        if (counts[value] > 0) {
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
        all += counts[value];
        sum += counts[value] * value;
        outside += value < 16 || value > highest ? counts[value] : 0;
    }
    std::printf("  %-2.*s %3zu..%-3zu mean %6.2f", static_cast<int>(channel.name.size()),
                channel.name.data(), least, greatest,
                static_cast<double>(sum) / static_cast<double>(std::max<std::uint64_t>(all, 1)));
    if (luma || channel.subsampled()) {
        std::printf("  %.3f %% outside 16..%zu",
                    100.0 * static_cast<double>(outside) / static_cast<double>(all), highest);
    }
    std::printf("\n");
}

}  // namespace

void runInfo(const InfoArguments& arguments) {
    const auto reader = openFrames(arguments.file, arguments.format, arguments.size);
    Image image = createImage(arguments.format, reader->size());
    const auto channels = channelsOf(arguments.format);
    std::array<Histogram, 4> histograms = {};
    std::uint64_t frames = 0;
    for (; reader->next(image.view()); ++frames) {
        for (std::size_t c = 0; c < channels.size(); ++c) {
            const std::uint32_t count = image.width() / (channels[c].subsampled() ? 2 : 1);
            for (std::uint32_t y = 0; y < image.height(); ++y) {
                const Samples row = samplesOf(std::as_const(image).view(), channels[c], y);
                for (std::uint32_t x = 0; x < count; ++x) {
                    ++histograms[c][static_cast<std::size_t>(row[x])];
                }
            }
        }
    }
    const auto name = formatInfo(arguments.format).name;
    std::printf("%llu %s of %.*s, %ux%u\n", static_cast<unsigned long long>(frames),
                frames == 1 ? "frame" : "frames", static_cast<int>(name.size()), name.data(),
                static_cast<unsigned>(image.width()), static_cast<unsigned>(image.height()));
    for (std::size_t c = 0; c < channels.size(); ++c) {
        print(channels[c], histograms[c]);
    }
}

}  // namespace orva::tool
