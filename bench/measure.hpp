// Measures what competes over one picture: kernels of several tables, memory and peers.
#pragma once

#include "cases.hpp"
#include "machine.hpp"

#include <functional>
#include <span>

namespace bench {

// How a frame lies in memory, which chooses between fast and general kernels.
enum class Form {
    fast,      // rows aligned and of whole blocks
    offset,    // destination rows 8 bytes behind a 16-byte boundary
    unevenly,  // 1922 pixels wide instead of 1920: rows begin and end anywhere
    odd,       // planes of both sides one byte behind a 16-byte boundary
    crop,      // of larger frames, from each format's first column that is not 0 on
};

const char* label(Form form);

struct Competitor {
    std::string name;  // of a table of kernels or a peer
    bool streaming = false;
    Form form = Form::fast;
    Size size;
    FrameMemory frame;
    std::function<void()> prepare = [] {};  // not timed, before each run of timed calls
    // A frame in memory that begins on a page boundary.
    std::function<void(uint8_t* memory)> convert;
    std::vector<double> samples{};  // nanoseconds per pixel, one of each round
};

struct Method {
    bool reuse = false;  // one frame again and again instead of a ring of frames
    int rounds = 15;
};

// Fills in the samples. Every round measures each competitor once, so that a disturbance hits all
// alike and samples of the same round can be compared; and each in another order, so that none
// always comes behind the same one.
void measure(std::span<Competitor> competitors, Ring& ring, const Method& method);

double median(std::vector<double> values);

// The median of the rounds' ratios.
double ratio(const Competitor& ours, const Competitor& theirs);

}  // namespace bench
