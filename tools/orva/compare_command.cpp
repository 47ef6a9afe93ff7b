// orva compare: how far two files of one format are apart.
#include "channel_reader.hpp"
#include "commands.hpp"
#include "failure.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace orva::tool {
namespace {

struct Difference {
    std::uint64_t samples = 0;
    std::uint64_t different = 0;
    std::uint64_t squares = 0;
    int greatest = 0;

    void add(int a, int b) {
        const int difference = std::abs(a - b);
        ++samples;
        different += difference != 0;
        squares += static_cast<std::uint64_t>(difference * difference);
        greatest = std::max(greatest, difference);
    }

    double psnr(double peak) const {
        if (squares == 0) {
            return std::numeric_limits<double>::infinity();
        }
        return 10 * std::log10(peak * peak * static_cast<double>(samples) /
                               static_cast<double>(squares));
    }
};

}  // namespace

void runCompare(const CompareArguments& arguments) {
    ChannelReader first(arguments.first, arguments.in);
    const Format format = first.format();
    InputSettings same = arguments.in;
    same.format = format;
    same.size = first.size();
    ChannelReader second(arguments.second, same);
    const auto channels = channelsOf(format);
    std::array<Difference, 4> differences = {};
    for (;;) {
        const bool more = first.next();
        if (more != second.next()) {
            throw Failure(arguments.first + " and " + arguments.second +
                          " do not hold the same number of frames");
        }
        if (!more) {
            break;
        }
        for (std::size_t c = 0; c < channels.size(); ++c) {
            for (std::uint32_t y = 0; y < first.size().height; ++y) {
                const SampleRow& a = first.samples(channels[c], y);
                const SampleRow& b = second.samples(channels[c], y);
                for (std::size_t i = 0; i < a.size(); ++i) {
                    differences[c].add(a[i], b[i]);
                }
            }
        }
    }
    const double peak = (1 << formatInfo(format).bits) - 1;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t c = 0; c < channels.size(); ++c) {
        const double psnr = differences[c].psnr(peak);
        least = std::min(least, psnr);
        std::printf("%-2.*s PSNR %.2f dB, greatest difference %d, %llu of %llu samples differ\n",
                    static_cast<int>(channels[c].name.size()), channels[c].name.data(), psnr,
                    differences[c].greatest,
                    static_cast<unsigned long long>(differences[c].different),
                    static_cast<unsigned long long>(differences[c].samples));
    }
    if (arguments.minimumPsnr && least < *arguments.minimumPsnr) {
        throw Failure("a channel's PSNR is below the wanted minimum");
    }
}

}  // namespace orva::tool
