// orva selftest: whether this machine gives the documented bytes, with every instruction set it
// has.
#include "commands.hpp"
#include "version.hpp"

#include "golden/check.hpp"

#include <algorithm>
#include <cstdio>

namespace orva::tool {
namespace {

using golden::Outcome;

// Tells what each instruction set gave, and returns whether all was right.
bool report(const char* what, const std::vector<Outcome>& outcomes) {
    constexpr std::size_t shownFaults = 3;
    bool right = true;
    for (const auto& [instructionSet, supported, count, wrong] : outcomes) {
        std::printf("%-16s %-9s ", what, instructionSet.c_str());
        what = "";
        if (!supported) {
            std::puts("not on this processor");
        } else if (wrong.empty()) {
            std::printf("%zu of %zu as documented\n", count, count);
        } else {
            right = false;
            std::printf("%zu of %zu DIFFER:", wrong.size(), count + wrong.size());
            for (std::size_t i = 0; i < std::min(wrong.size(), shownFaults); ++i) {
                std::printf("%s %s", i > 0 ? "," : "", wrong[i].c_str());
            }
            std::puts(wrong.size() > shownFaults ? ", ..." : "");
        }
    }
    return right;
}

}  // namespace

bool runSelftest() {
    std::printf("%s\n\n", versionText().c_str());
    const bool exports = report("85 exports", golden::checkExports(golden::documentedExports()));
    const bool conversions =
        report("checked library", golden::checkConversions(golden::documentedConversions()));
    std::puts(
        exports && conversions
            ? "This machine gives the documented bytes."
            : "This machine does NOT give the documented bytes: do not trust what it converts.");
    return exports && conversions;
}

}  // namespace orva::tool
