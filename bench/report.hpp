// What was measured, for people and for programs.
#pragma once

#include "competitors.hpp"

#include <optional>
#include <ostream>

namespace bench {

// One case at one size, measured.
struct Row {
    Case measured;
    Size size;
    std::vector<Competitor> competitors;

    // Null if it did not take part.
    const Competitor* find(std::string_view name, bool streaming = false,
                           Form form = Form::fast) const;
    // The kind of stores with which it is faster, where there are two.
    const Competitor* better(std::string_view name, Form form = Form::fast) const;
    // How many times as long our kernels take as another competitor.
    std::optional<double> against(const Competitor& ours, std::string_view theirs) const;

    double gigabytesPerSecond(const Competitor& competitor) const;
};

// printf into a string.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

// The table of the best kernels with the better kind of stores, or of all of them.
void writeMarkdown(std::ostream& out, const std::vector<Row>& rows, bool everything,
                   const std::string& conditions);
void writeCsv(std::ostream& out, const std::vector<Row>& rows);
// A chart of the times at 1920x1080 as multiples of memcpy's.
void writeChart(std::ostream& out, const std::vector<Row>& rows);

// Compares streaming with ordinary stores over sizes of frames.
void writeStreaming(std::ostream& out, Ring& ring, int rounds);

// Converts every triple of bytes with our kernels and the peers' functions and writes a table of
// the largest differences from the exact values.
void writeAccuracy(std::ostream& out);

}  // namespace bench
