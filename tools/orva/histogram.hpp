// How often a channel has each of its codes.
#pragma once

#include "channels.hpp"

#include <array>
#include <string>

namespace orva::tool {

// Codes from the least to the greatest one, both included.
struct CodeSpan {
    std::size_t least;
    std::size_t greatest;
};

class Histogram {
public:
    explicit Histogram(int bits);

    void add(const SampleRow& samples);

    std::uint64_t all() const { return within({0, codes - 1}); }
    std::uint64_t within(CodeSpan span) const;

    // Of at least one sample.
    CodeSpan used() const;
    double mean() const;

    // A line of 64 columns, each for as many codes. A column's height is the square root of its
    // share, so that rare codes are seen beside frequent ones.
    std::string drawn(bool unicode) const;

private:
    // Runs of one code would wait for the same counter: neighbours count in different sets.
    static constexpr std::size_t sets = 4;

    std::size_t codes;
    std::vector<std::array<std::uint64_t, sets>> counts;

    std::uint64_t count(std::size_t code) const;
};

// Whether standard output takes UTF-8, by the environment or, on Windows, the console.
bool outputIsUnicode();

}  // namespace orva::tool
