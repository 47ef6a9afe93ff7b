// Competitors over one picture, measured and set against one another.
#pragma once

#include "measure.hpp"

#include <optional>

namespace bench {

struct Comparison {
    Size size;
    std::vector<Competitor> competitors;

    // Null if it did not take part.
    const Competitor* find(std::string_view name, bool streaming = false,
                           Form form = Form::fast) const;
    // The kind of stores with which it is faster, where there are two.
    const Competitor* better(std::string_view name, Form form = Form::fast) const;
    // How many times as long our kernels take as another competitor with its better kind.
    std::optional<double> against(const Competitor& ours, std::string_view theirs) const;
};

double gigabytesPerSecond(const Competitor& competitor);

// Measures them and lets go of what they hold.
Comparison compare(Size size, std::vector<Competitor> competitors, Ring& ring,
                   const Method& method);

}  // namespace bench
