// Only what gives the right bytes is worth measuring.
#include "bytes.hpp"

#include "golden/check.hpp"
#include "text.hpp"

#include <stdexcept>

namespace bench {

static void expectRight(const std::vector<orva::golden::Outcome>& outcomes) {
    for (const auto& [instructionSet, supported, right, wrong] : outcomes)
        if (!wrong.empty())
            throw std::runtime_error(instructionSet + " gives wrong bytes: " + joined(wrong));
}

void checkBytesOfExports() {
    expectRight(orva::golden::checkExports(orva::golden::documentedExports()));
}

void checkBytesOfPairs() {
    expectRight(orva::golden::checkConversions(orva::golden::documentedConversions()));
}

}  // namespace bench
