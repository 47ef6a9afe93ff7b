// Who competes over a pair of formats: the checked library, the exports, memory and swscale.
#pragma once

#include "competitors.hpp"
#include "pairs.hpp"

namespace bench {

// A function of another library that does what a pair does.
struct PairPeer {
    std::string name;
    std::function<void(const orva::ConstImageView&, const orva::ImageView&)> convert;
};

#if ORVA_BENCH_SWSCALE
std::vector<PairPeer> swscalePeers(const Pair& pair);
#else
inline std::vector<PairPeer> swscalePeers(const Pair&) { return {}; }
#endif

inline constexpr const char* swscaleDefaultName = "swscale by default";

// The instruction sets with which pairs are measured: the best one and, if that is another, AVX2.
std::vector<std::string> pairTables();

// The checked library's competitor has the instruction set's own name, the export's this one.
inline std::string exportName(const std::string& instructionSet) {
    return "export " + instructionSet;
}

// A pair of each kind of conversion, which is measured at odd addresses and out of crops too.
bool standsForItsKind(const Pair& pair);

std::vector<Competitor> competitors(const Pair& pair, Size size);

}  // namespace bench
