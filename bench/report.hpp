// What was measured, for people and for programs.
#pragma once

#include "comparison.hpp"

#include <ostream>

namespace bench {

// One case at one size, measured.
struct Row : Comparison {
    Case measured;
};

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
