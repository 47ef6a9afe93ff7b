// Histograms, counted and drawn.
#include "histogram.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <numeric>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace orva::tool {
namespace {

constexpr std::size_t columns = 64;
constexpr const char* unicodeBars[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr const char* asciiBars[] = {" ", ".", ":", "-", "=", "+", "*", "#", "@"};

}  // namespace

Histogram::Histogram(int bits) : codes(std::size_t{1} << bits), counts(codes) {}

void Histogram::add(const SampleRow& samples) {
    std::size_t i = 0;
    for (; i + sets <= samples.size(); i += sets) {
        for (std::size_t set = 0; set < sets; ++set) {
            ++counts[samples[i + set]][set];
        }
    }
    for (; i < samples.size(); ++i) {
        ++counts[samples[i]][0];
    }
}

std::uint64_t Histogram::count(std::size_t code) const {
    return std::accumulate(counts[code].begin(), counts[code].end(), std::uint64_t{0});
}

std::uint64_t Histogram::within(CodeSpan span) const {
    std::uint64_t samples = 0;
    for (std::size_t code = span.least; code <= span.greatest; ++code) {
        samples += count(code);
    }
    return samples;
}

CodeSpan Histogram::used() const {
    CodeSpan span = {0, codes - 1};
    while (count(span.least) == 0) {
        ++span.least;
    }
    while (count(span.greatest) == 0) {
        --span.greatest;
    }
    return span;
}

double Histogram::mean() const {
    double sum = 0;
    for (std::size_t code = 0; code < codes; ++code) {
        sum += static_cast<double>(count(code)) * static_cast<double>(code);
    }
    return sum / static_cast<double>(all());
}

std::string Histogram::drawn(bool unicode) const {
    const auto& bars = unicode ? unicodeBars : asciiBars;
    const std::size_t width = codes / columns;
    std::array<double, columns> heights;
    for (std::size_t i = 0; i < columns; ++i) {
        heights[i] = std::sqrt(static_cast<double>(within({i * width, (i + 1) * width - 1})));
    }
    const double highest = *std::ranges::max_element(heights);
    std::string line;
    for (const double height : heights) {
        // Any sample at all is seen.
        line += bars[static_cast<std::size_t>(
            std::ceil(height / highest * static_cast<double>(std::size(bars) - 1)))];
    }
    return line;
}

bool outputIsUnicode() {
#if defined(_WIN32)
    return GetConsoleOutputCP() == CP_UTF8;
#else
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (const char* const value = std::getenv(variable); value && *value) {
            std::string encoding = value;
            std::ranges::transform(encoding, encoding.begin(), [](unsigned char c) {
                return static_cast<char>(std::tolower(c));
            });
            return encoding.find("utf-8") != encoding.npos ||
                   encoding.find("utf8") != encoding.npos;
        }
    }
    return false;
#endif
}

}  // namespace orva::tool
