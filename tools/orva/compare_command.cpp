// orva compare: how far two files of one format are apart.
#include "channel_reader.hpp"
#include "commands.hpp"
#include "failure.hpp"
#include "heatmap.hpp"
#include "numbered_name.hpp"
#include "open_inputs.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace orva::tool {
namespace {

struct Difference {
    std::uint64_t samples = 0;
    std::uint64_t different = 0;
    std::uint64_t squares = 0;
    int greatest = 0;

    void add(int difference) {
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

void print(const Channel& channel, const Difference& difference, double psnr) {
    std::printf("%-2.*s PSNR %.2f dB, greatest difference %d, %llu of %llu samples differ\n",
                static_cast<int>(channel.name.size()), channel.name.data(), psnr,
                difference.greatest, static_cast<unsigned long long>(difference.different),
                static_cast<unsigned long long>(difference.samples));
}

void printScale(const std::string& name, int scale) {
    if (scale == 0) {
        std::printf("%s: black, nothing differs\n", name.c_str());
    } else {
        std::printf("%s: the greatest difference at each pixel; black is none, dark blue 1, then "
                    "purple, red,\norange and yellow up to white, %d\n",
                    name.c_str(), scale);
    }
}

void requireHeatmapName(const std::string& name) {
    if (name.empty()) {
        throw Failure("the name of the heatmap is empty");
    }
    if (!isPicture(kindOfName(name))) {
        throw Failure("--heatmap " + name + ": is not the name of a picture (.png)");
    }
    if (NumberedName(name).hasNumber()) {
        throw Failure("--heatmap " + name + ": is one picture of all frames, and holds no number");
    }
}

bool isStandardInput(const std::string& name) {
    return name == "-" || name == "/dev/stdin" || name == "/dev/fd/0" || name == "/proc/self/fd/0";
}

}  // namespace

bool runCompare(const CompareArguments& arguments) {
    if (arguments.heatmap) {
        requireHeatmapName(*arguments.heatmap);
        keepFromInputs(NumberedName(*arguments.heatmap).with(0));
    }
    if (isStandardInput(arguments.first) && isStandardInput(arguments.second)) {
        throw Failure(arguments.first + " and " + arguments.second +
                      " are both standard input, which can be one of the files only");
    }
    ChannelReader first(arguments.first, arguments.in);
    const Format format = first.format();
    InputSettings same = arguments.in;
    same.format = format;
    same.size = first.size();
    ChannelReader second(arguments.second, same);
    const auto channels = channelsOf(format);
    std::array<Difference, 4> differences = {};
    std::optional<Heatmap> heatmap;
    if (arguments.heatmap) {
        heatmap.emplace(first.size());
    }
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
                    const int difference = std::abs(a[i] - b[i]);
                    differences[c].add(difference);
                    if (heatmap && difference > 0) {
                        heatmap->add(channels[c], static_cast<std::uint32_t>(i), y, difference);
                    }
                }
            }
        }
    }
    const double peak = (1 << formatInfo(format).bits) - 1;
    double leastPsnr = std::numeric_limits<double>::infinity();
    int greatest = 0;
    for (std::size_t c = 0; c < channels.size(); ++c) {
        const double psnr = differences[c].psnr(peak);
        print(channels[c], differences[c], psnr);
        leastPsnr = std::min(leastPsnr, psnr);
        greatest = std::max(greatest, differences[c].greatest);
    }
    if (heatmap) {
        heatmap->write(*arguments.heatmap, greatest);
        printScale(NumberedName(*arguments.heatmap).with(0), greatest);
    }
    const bool below = arguments.minimumPsnr && leastPsnr < *arguments.minimumPsnr;
    const bool above = arguments.maximumDifference && greatest > *arguments.maximumDifference;
    if (below) {
        std::fprintf(stderr, "orva: a channel's PSNR is below %g dB\n", *arguments.minimumPsnr);
    }
    if (above) {
        std::fprintf(stderr, "orva: a sample differs by more than %d\n",
                     *arguments.maximumDifference);
    }
    return !below && !above;
}

}  // namespace orva::tool
