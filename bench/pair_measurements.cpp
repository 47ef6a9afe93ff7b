// Measures pairs of formats.
#include "pair_measurements.hpp"

#include "pair_competitors.hpp"
#include "progress.hpp"
#include "text.hpp"

namespace bench {
namespace {

Method fromMemory(const Method& asked, bool hasExport) {
    Method method = asked;
    if (!hasExport)
        method.rounds = (asked.rounds + 1) / 2;
    return method;
}

Method fromCache(const Method& asked) {
    Method method = asked;
    method.reuse = true;
    return method;
}

}  // namespace

std::vector<PairRow> measurePairs(const std::vector<Pair>& list, Ring& ring, const Method& asked) {
    std::vector<PairRow> rows;
    Progress progress(std::to_string(list.size()) + " pairs of formats with " +
                          joined(pairTables()),
                      list.size());
    for (const Pair& pair : list) {
        progress.next(pair.name());
        const auto add = [&](Size size, const Method& method) {
            rows.push_back({compare(size, competitors(pair, size), ring, method), pair});
        };
        const bool hasExport = pair.exported().has_value();
        add(hd, fromMemory(asked, hasExport));
        if (hasExport) {
            add(uhd, fromMemory(asked, true));
            add(inCache, fromCache(asked));
        }
    }
    return rows;
}

std::string samplesOfPairs(const Method& asked) {
    return text("%d samples, of %d for pairs without an export", asked.rounds,
                fromMemory(asked, false).rounds);
}

}  // namespace bench
