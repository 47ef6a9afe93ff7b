// Measures pairs of formats: hundreds of them, so less often where less depends on it.
#pragma once

#include "comparison.hpp"
#include "pairs.hpp"

namespace bench {

// One pair at one size, measured.
struct PairRow : Comparison {
    Pair pair;
};

// Every pair at 1920x1080, those with an export at 3840x2160 and 320x64 too.
std::vector<PairRow> measurePairs(const std::vector<Pair>& list, Ring& ring, const Method& asked);

// How many samples that takes of each time.
std::string samplesOfPairs(const Method& asked);

}  // namespace bench
