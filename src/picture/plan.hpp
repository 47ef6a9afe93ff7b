// What a conversion does with every row, decided once per call.
#pragma once

#include "picture/passes.hpp"

namespace orva::picture {

// The planes that passes read or write of a row, and for 4:2:2 where the two luma samples of a pair
// are: beyond an odd row's end the second repeats the first.
struct Shape {
    PlaneInfo planes[planeCount];
    uint8_t lumaOfPair[2];
    uint8_t lumaBytes;  // 0 where no pair has to be completed before the first pass
};

// What is done to the destination's alpha plane beside the passes.
enum class AlphaStep : uint8_t { none, copy, fill };

// Rows go through up to three passes, of which each but the last fills a strip. A plan without any
// moves only alpha, or copies rows if it says so.
struct Plan {
    bool copiesColour = false;

    Pass prepare = nullptr;  // V210 to samples
    Pass compute = nullptr;  // the maths
    Pass finish = nullptr;   // samples to V210, or what only moves

    bool readsNeighbours = false;  // pixels of a row depend on one another
    bool toV210 = false;
    size_t unitPixels = 0;   // a piece of a row begins at a multiple of it,
    size_t granularity = 0;  // and at whole blocks of units from there on the next
    Shape source = {}, destination = {};

    AlphaStep alpha = AlphaStep::none;

    Constants constants = {};

    bool hasPasses() const { return compute || finish; }
    bool onlyMoves() const { return !prepare && !compute; }
};

Plan makePlan(Format source, Format destination, const Options& options, const Kernels& kernels);

}  // namespace orva::picture
