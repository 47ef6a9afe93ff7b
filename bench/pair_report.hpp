// What was measured of the checked library, for people and for programs.
#pragma once

#include "judgement.hpp"
#include "pair_measurements.hpp"

#include <ostream>

namespace bench {

// A table for each size and one of odd addresses and crops.
void writePairs(std::ostream& out, const std::vector<PairRow>& rows);
void writePairsCsv(std::ostream& out, const std::vector<PairRow>& rows);

// Of the speeds that the checked library promises itself.
Judgement judge(const std::vector<PairRow>& rows);

}  // namespace bench
