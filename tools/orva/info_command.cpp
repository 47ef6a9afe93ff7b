// orva info: what is in a file, channel by channel, and what that says of its range.
#include "channel_reader.hpp"
#include "commands.hpp"
#include "format_names.hpp"
#include "histogram.hpp"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace orva::tool {
namespace {

constexpr CodeSpan studioSpan(const Channel& channel, int bits) {
    return {std::size_t{16} << (bits - 8),
            std::size_t{channel.name == "Y" ? 235u : 240u} << (bits - 8)};
}

std::string spanText(CodeSpan span) {
    return std::to_string(span.least) + ".." + std::to_string(span.greatest);
}

double percent(std::uint64_t part, std::uint64_t whole) {
    return 100.0 * static_cast<double>(part) / static_cast<double>(whole);
}

// A file's channels, and their histograms in the same order.
struct Contents {
    std::span<const Channel> channels;
    std::vector<Histogram> histograms;
    int bits;
};

void printChannels(const Contents& contents) {
    const int digits = contents.bits > 8 ? 4 : 3;
    const bool unicode = outputIsUnicode();
    for (std::size_t c = 0; c < contents.channels.size(); ++c) {
        const Channel& channel = contents.channels[c];
        const Histogram& histogram = contents.histograms[c];
        const CodeSpan used = histogram.used();
        std::printf("  %-2.*s %*zu..%-*zu mean %*.2f", static_cast<int>(channel.name.size()),
                    channel.name.data(), digits, used.least, digits, used.greatest, digits + 3,
                    histogram.mean());
        if (channel.name == "Y" || channel.subsampled()) {
            const CodeSpan studio = studioSpan(channel, contents.bits);
            const std::uint64_t all = histogram.all();
            std::printf("  %.3f %% outside %s", percent(all - histogram.within(studio), all),
                        spanText(studio).c_str());
        }
        std::printf("\n     |%s|\n", histogram.drawn(unicode).c_str());
    }
}

// Overshoot of filters and of what a camera sends beyond white is less than this in studio range.
constexpr double overshootPercent = 1;

void judgeYCbCr(const Contents& contents) {
    double outside = 0;  // of the channel that has most
    std::uint64_t all = 0, reserved = 0;
    const std::size_t reservedCodes = std::size_t{1} << (contents.bits - 8);
    const std::size_t codes = std::size_t{1} << contents.bits;
    for (std::size_t c = 0; c < 3; ++c) {
        const Histogram& histogram = contents.histograms[c];
        const std::uint64_t samples = histogram.all();
        const CodeSpan studio = studioSpan(contents.channels[c], contents.bits);
        outside = std::max(outside, percent(samples - histogram.within(studio), samples));
        all += samples;
        reserved += histogram.within({0, reservedCodes - 1}) +
                    histogram.within({codes - reservedCodes, codes - 1});
    }
    if (outside == 0) {
        std::puts(
            "Range: studio by all signs, no sample lies outside it; full range of low contrast "
            "looks alike.");
    } else if (outside < overshootPercent) {
        std::printf("Range: studio with overshoot, up to %.3f %% of a channel lie outside it.\n",
                    outside);
    } else {
        std::printf(
            "Range: full, or not this format: up to %.1f %% of a channel lie outside studio "
            "range.\n",
            outside);
    }
    std::printf("Codes that SDI reserves (%s, %s): %.3f %% of the samples.\n",
                reservedCodes == 1 ? "0" : spanText({0, reservedCodes - 1}).c_str(),
                reservedCodes == 1 ? "255" : spanText({codes - reservedCodes, codes - 1}).c_str(),
                percent(reserved, all));
    std::puts("Matrix: not guessed, samples do not tell it.");
}

void judgeRgb(const Contents& contents) {
    const bool studio = std::ranges::all_of(
        std::span(contents.histograms).first(3), [](const Histogram& histogram) {
            return histogram.used().least >= 16 && histogram.used().greatest <= 235;
        });
    std::puts(
        studio ? "Range: taken for full as RGB always is, but all lies in 16..235, as if it were "
                 "studio."
               : "Range: full, as RGB always is.");
}

void judgeAlpha(const Histogram& histogram) {
    const CodeSpan used = histogram.used();
    std::puts(used.least == 255    ? "Alpha: opaque everywhere."
              : used.greatest == 0 ? "Alpha: transparent everywhere."
                                   : "Alpha: not the same everywhere, or half transparent.");
}

}  // namespace

void runInfo(const InfoArguments& arguments) {
    ChannelReader reader(arguments.file, arguments.in);
    const FormatInfo info = formatInfo(reader.format());
    Contents contents{channelsOf(info.format), {}, info.bits};
    contents.histograms.assign(contents.channels.size(), Histogram(info.bits));
    std::uint64_t frames = 0;
    for (; reader.next(); ++frames) {
        for (std::size_t c = 0; c < contents.channels.size(); ++c) {
            for (std::uint32_t y = 0; y < reader.size().height; ++y) {
                contents.histograms[c].add(reader.samples(contents.channels[c], y));
            }
        }
    }
    const std::string name = nameOf(info.format);
    std::printf("%llu %s of %s%s, %s, %d bits\n", static_cast<unsigned long long>(frames),
                frames == 1 ? "frame" : "frames", name.c_str(),
                name == info.name ? "" : (" (" + std::string(info.name) + ")").c_str(),
                sizeText(reader.size()).c_str(), info.bits);
    printChannels(contents);
    if (const auto range = reader.properties().range) {
        std::printf("The file says: %s range.\n", *range == Range::full ? "full" : "studio");
    }
    if (info.model == Model::ycbcr) {
        judgeYCbCr(contents);
    } else if (info.model == Model::rgb) {
        judgeRgb(contents);
    }
    if (info.hasAlpha) {
        judgeAlpha(contents.histograms.back());
    }
}

}  // namespace orva::tool
