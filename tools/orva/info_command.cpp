// orva info: what is in a file, channel by channel.
#include "channel_reader.hpp"
#include "commands.hpp"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace orva::tool {
namespace {

using Histogram = std::vector<std::uint64_t>;

void print(const Channel& channel, const Histogram& counts, int bits) {
    std::uint64_t all = 0, sum = 0, outside = 0;
    std::size_t least = counts.size() - 1, greatest = 0;
    const bool luma = channel.name == "Y";
    const std::size_t studioLeast = std::size_t{16} << (bits - 8);
    const std::size_t studioGreatest = (luma ? std::size_t{235} : 240) << (bits - 8);
    for (std::size_t value = 0; value < counts.size(); ++value) {
        if (counts[value] > 0) {
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
        all += counts[value];
        sum += counts[value] * value;
        outside += value < studioLeast || value > studioGreatest ? counts[value] : 0;
    }
    const int digits = bits > 8 ? 4 : 3;
    std::printf("  %-2.*s %*zu..%-*zu mean %*.2f", static_cast<int>(channel.name.size()),
                channel.name.data(), digits, least, digits, greatest, digits + 3,
                static_cast<double>(sum) / static_cast<double>(std::max<std::uint64_t>(all, 1)));
    if (luma || channel.subsampled()) {
        std::printf("  %.3f %% outside %zu..%zu",
                    100.0 * static_cast<double>(outside) / static_cast<double>(all), studioLeast,
                    studioGreatest);
    }
    std::printf("\n");
}

}  // namespace

void runInfo(const InfoArguments& arguments) {
    ChannelReader reader(arguments.file, arguments.in);
    const FormatInfo info = formatInfo(reader.format());
    const auto channels = channelsOf(info.format);
    std::vector<Histogram> histograms(channels.size(), Histogram(std::size_t{1} << info.bits));
    std::uint64_t frames = 0;
    for (; reader.next(); ++frames) {
        for (std::size_t c = 0; c < channels.size(); ++c) {
            for (std::uint32_t y = 0; y < reader.size().height; ++y) {
                for (const std::uint16_t sample : reader.samples(channels[c], y)) {
                    ++histograms[c][sample];
                }
            }
        }
    }
    std::printf("%llu %s of %.*s, %s\n", static_cast<unsigned long long>(frames),
                frames == 1 ? "frame" : "frames", static_cast<int>(info.name.size()),
                info.name.data(), sizeText(reader.size()).c_str());
    for (std::size_t c = 0; c < channels.size(); ++c) {
        print(channels[c], histograms[c], info.bits);
    }
}

}  // namespace orva::tool
