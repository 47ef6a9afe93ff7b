// Whether this processor gives the documented bytes with each of its instruction sets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orva::golden {

// Hashes by case: of the exports "UYVY16I_BGR32I 11", of the checked library "UYVY16I_BGR32I".
using Hashes = std::map<std::string, uint64_t>;

// As in export_hashes.txt and conversion_hashes.txt.
Hashes documentedExports();
Hashes documentedConversions();

// What one instruction set's kernels made of all cases.
struct Outcome {
    std::string instructionSet;
    bool supported;  // else nothing was run
    size_t right = 0;
    std::vector<std::string> wrong;  // cases whose bytes differ or are not documented
};

// Each table of kernels in turn takes the place of the active one, which calls of other threads at
// the same time see.
std::vector<Outcome> checkExports(const Hashes& documented);
std::vector<Outcome> checkConversions(const Hashes& documented);

}  // namespace orva::golden
