// Measurements held against what is expected of them.
#include "judgement.hpp"

#include "text.hpp"

#include <algorithm>
#include <functional>

namespace bench {

void Judgement::expect(const std::string& name, double limit, std::optional<double> measured,
                       const std::string& where) {
    if (!measured)
        return;
    auto target = std::ranges::find(targets, name, &Target::name);
    if (target == targets.end())
        target = targets.insert(target, {name, limit});
    target->measured.emplace_back(*measured, where);
}

bool Judgement::write(std::ostream& out) {
    bool allMet = true;
    std::string misses;
    out << "| target | at most | measured | missed | worst | |\n|---|--:|--:|--:|---|---|\n";
    for (Target& target : targets) {
        std::ranges::sort(target.measured, std::greater());
        size_t missed = 0;
        for (const auto& [times, where] : target.measured) {
            if (times <= target.limit)
                break;
            ++missed;
            misses += text("- %s: %s %.3f\n", target.name.c_str(), where.c_str(), times);
        }
        const auto& [worst, where] = target.measured.front();
        out << text("| %s | %.2f | %zu | %zu | %.3f %s | %s |\n", target.name.c_str(), target.limit,
                    target.measured.size(), missed, worst, where.c_str(),
                    missed == 0 ? "pass" : "FAIL");
        allMet &= missed == 0;
    }
    if (!misses.empty())
        out << "\nMissed:\n\n" << misses;
    return allMet;
}

}  // namespace bench
