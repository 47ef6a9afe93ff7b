// The libraries' output on fixed frames: the documented hashes, with every table of kernels.
#include "golden/check.hpp"
#include "golden/conversion_cases.hpp"
#include "support/picture.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace orva::golden {
namespace {

using Check = std::vector<Outcome> (*)(const Hashes&);

// All cases are documented, and no others are.
void expectAllRight(Check check, const Hashes& documented) {
    for (const Outcome& outcome : check(documented)) {
        printf("[  tables  ] %s%s\n", outcome.instructionSet.c_str(),
               outcome.supported ? "" : ": not supported here");
        EXPECT_EQ(outcome.wrong, std::vector<std::string>{}) << outcome.instructionSet;
        EXPECT_EQ(outcome.right, outcome.supported ? documented.size() : 0);
    }
}

// A hash that is not what is documented is noticed, and a case that is not there.
void expectFaultsFound(Check check, Hashes documented) {
    const std::string changed = documented.begin()->first, gone = documented.rbegin()->first;
    documented[changed] ^= 1;
    documented.erase(gone);
    for (const Outcome& outcome : check(documented)) {
        std::vector<std::string> wrong = outcome.wrong;
        std::ranges::sort(wrong);
        EXPECT_EQ(wrong, outcome.supported ? std::vector<std::string>({changed, gone})
                                           : std::vector<std::string>{});
    }
}

TEST(Golden, Exports) { expectAllRight(checkExports, documentedExports()); }
TEST(Golden, Conversions) { expectAllRight(checkConversions, documentedConversions()); }
TEST(Golden, FaultsAreFound) {
    expectFaultsFound(checkExports, documentedExports());
    expectFaultsFound(checkConversions, documentedConversions());
}

// So that the hashes of the checked library are those of right pictures.
TEST(Golden, ModelConfirmsConversions) {
    for (const Pair& pair : pairs()) {
        convertCases(pair, [&pair](const ConstImageView& source, const ConstImageView& destination,
                                   const Options& options) {
            const std::string fault =
                test::judge(source, destination, options, 0, source.height).fault;
            EXPECT_EQ(fault, "") << pair.name() << ": " << test::describe(options);
        });
    }
}

}  // namespace
}  // namespace orva::golden
