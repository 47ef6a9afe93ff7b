// The frames and options of conversion_hashes.txt, which says how they are made.
#pragma once

#include <orva/convert.hpp>

#include <functional>
#include <string>
#include <vector>

namespace orva::golden {

struct Pair {
    orva::Format source, destination;

    std::string name() const;
};

// Every pair that the checked library converts.
std::vector<Pair> pairs();

// Converts the frames of a pair with each set of options, and hands them on.
using Visit = std::function<void(const ConstImageView& source, const ConstImageView& destination,
                                 const Options& options)>;
void convertCases(const Pair& pair, const Visit& visit);

// Over the destinations' rows, plane after plane.
uint64_t hashOf(const Pair& pair);

}  // namespace orva::golden
