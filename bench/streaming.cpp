// The sizes of frames from which on streaming stores pay.
#include "competitors.hpp"
#include "report.hpp"
#include "text.hpp"

#include <array>

namespace bench {

static double streamingToOrdinary(const Case& c, Size size, Ring& ring, const Method& method) {
    std::vector<Competitor> kinds = competitors(c, size, {});
    std::erase_if(kinds, [](const Competitor& k) { return k.name != bestTable(); });
    const Comparison measured = compare(size, std::move(kinds), ring, method);
    return ratio(*measured.find(bestTable(), true), *measured.find(bestTable(), false));
}

void writeStreaming(std::ostream& out, Ring& ring, int rounds) {
    constexpr std::array conversions{"UYVY16I_UYVY16I", "BGR32I_BGR24I", "BGR32I_UYVY16I",
                                     "UYVY16I_BGR32I"};
    out << "Time with streaming stores divided by time with ordinary ones: frames fresh from "
           "memory / one frame again and again\n\n| size |";
    for (const char* name : conversions)
        out << " " << name << " |";
    out << "\n|---|--:|--:|--:|--:|\n";
    for (const Size size : {inCache, Size{640, 360}, pal, Size{1280, 720}, hd, Size{2560, 1440},
                            uhd, Size{7680, 4320}}) {
        out << "| " << label(size) << " |";
        for (const char* name : conversions) {
            const Case c{&exportNamed(name)};
            const double fresh = streamingToOrdinary(c, size, ring, {.rounds = rounds});
            const double again =
                streamingToOrdinary(c, size, ring, {.reuse = true, .rounds = rounds});
            out << text(" %.2f / %.2f |", fresh, again);
        }
        out << "\n";
    }
}

}  // namespace bench
