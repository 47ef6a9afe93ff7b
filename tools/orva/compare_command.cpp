// orva compare: how far two files of one format are apart.
#include "channels.hpp"
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
    std::uint64_t squares = 0;
    int greatest = 0;

    void add(std::byte a, std::byte b) {
        const int difference = std::abs(static_cast<int>(a) - static_cast<int>(b));
        ++samples;
        squares += static_cast<std::uint64_t>(difference * difference);
        greatest = std::max(greatest, difference);
    }

    double psnr() const {
        if (squares == 0) {
            return std::numeric_limits<double>::infinity();
        }
        return 10 * std::log10(255.0 * 255.0 * static_cast<double>(samples) /
                               static_cast<double>(squares));
    }
};

}  // namespace

void runCompare(const CompareArguments& arguments) {
    const auto first = openFrames(arguments.first, arguments.format, arguments.size);
    const auto second = openFrames(arguments.second, arguments.format, first->size());
    Image a = createImage(arguments.format, first->size());
    Image b = createImage(arguments.format, first->size());
    const auto channels = channelsOf(arguments.format);
    std::array<Difference, 4> differences = {};
    for (;;) {
        const bool more = first->next(a.view());
        if (more != second->next(b.view())) {
            throw Failure(arguments.first + " and " + arguments.second +
                          " do not hold the same number of frames");
        }
        if (!more) {
            break;
        }
        for (std::size_t c = 0; c < channels.size(); ++c) {
            const std::uint32_t count = a.width() / (channels[c].subsampled() ? 2 : 1);
            for (std::uint32_t y = 0; y < a.height(); ++y) {
                const Samples rowA = samplesOf(std::as_const(a).view(), channels[c], y);
                const Samples rowB = samplesOf(std::as_const(b).view(), channels[c], y);
                for (std::uint32_t x = 0; x < count; ++x) {
                    differences[c].add(rowA[x], rowB[x]);
                }
            }
        }
    }
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t c = 0; c < channels.size(); ++c) {
        const double psnr = differences[c].psnr();
        least = std::min(least, psnr);
        std::printf("%-2.*s PSNR %.2f dB, greatest difference %d\n",
                    static_cast<int>(channels[c].name.size()), channels[c].name.data(), psnr,
                    differences[c].greatest);
    }
    if (arguments.minimumPsnr && least < *arguments.minimumPsnr) {
        throw Failure("a channel's PSNR is below the wanted minimum");
    }
}

}  // namespace orva::tool
