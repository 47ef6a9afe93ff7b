// Competitors over one picture, measured and set against one another.
#include "comparison.hpp"

#include <algorithm>

namespace bench {

const Competitor* Comparison::find(std::string_view name, bool streaming, Form form) const {
    const auto found = std::ranges::find_if(competitors, [&](const Competitor& c) {
        return c.name == name && c.streaming == streaming && c.form == form;
    });
    return found == competitors.end() ? nullptr : &*found;
}

const Competitor* Comparison::better(std::string_view name, Form form) const {
    const Competitor *ordinary = find(name, false, form), *streaming = find(name, true, form);
    return streaming && ratio(*streaming, *ordinary) < 1 ? streaming : ordinary;
}

std::optional<double> Comparison::against(const Competitor& ours, std::string_view theirs) const {
    const Competitor* const other = better(theirs);
    return other ? std::optional(ratio(ours, *other)) : std::nullopt;
}

double gigabytesPerSecond(const Competitor& competitor) {
    const double pixels = double(competitor.size.width) * competitor.size.height;
    return double(competitor.frame.moved) / (pixels * median(competitor.samples));
}

Comparison compare(Size size, std::vector<Competitor> competitors, Ring& ring,
                   const Method& method) {
    measure(competitors, ring, method);
    for (Competitor& competitor : competitors)
        competitor.prepare = nullptr, competitor.convert = nullptr;
    return {size, std::move(competitors)};
}

}  // namespace bench
