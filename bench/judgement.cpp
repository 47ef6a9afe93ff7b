// Measurements held against what is expected of them.
#include "judgement.hpp"

#include "text.hpp"

#include <algorithm>

namespace bench {

size_t Judgement::Target::missed() const {
    return size_t(
        std::ranges::count_if(measured, [this](const Measured& m) { return m.times > limit; }));
}

const Judgement::Measured& Judgement::Target::worst() const {
    return *std::ranges::max_element(measured, {}, &Measured::times);
}

void Judgement::expect(const std::string& kind, const std::string& name, double limit,
                       std::optional<double> measured, const std::string& where) {
    if (!measured)
        return;
    auto target = std::ranges::find(targets, name, &Target::name);
    if (target == targets.end())
        target = targets.insert(target, {kind, name, limit});
    target->measured.push_back({*measured, where});
}

void Judgement::write(std::ostream& out) const {
    std::string misses;
    out << "| target | at most | measured | missed | worst |\n|---|--:|--:|--:|---|\n";
    for (const Target& target : targets) {
        const auto& [times, where] = target.worst();
        out << text("| %s | %.2f | %zu | %zu | %.3f %s |\n", target.name.c_str(), target.limit,
                    target.measured.size(), target.missed(), times, where.c_str());
        std::vector<Measured> sorted = target.measured;
        std::ranges::sort(sorted, std::ranges::greater(), &Measured::times);
        for (size_t i = 0; i < target.missed(); ++i)
            misses += text("- %s: %s %.3f\n", target.name.c_str(), sorted[i].where.c_str(),
                           sorted[i].times);
    }
    if (!misses.empty())
        out << "\nMissed:\n\n" << misses;
}

void Judgement::writeSummary(std::ostream& out) const {
    std::vector<std::string> kinds;
    for (const Target& target : targets)
        if (std::ranges::find(kinds, target.kind) == kinds.end())
            kinds.push_back(target.kind);

    const auto excess = [](const Target& t) { return t.worst().times / t.limit; };
    for (const std::string& kind : kinds) {
        size_t measured = 0, missed = 0;
        const Target* worst = nullptr;
        for (const Target& target : targets) {
            if (target.kind != kind)
                continue;
            measured += target.measured.size();
            missed += target.missed();
            if (!worst || excess(target) > excess(*worst))
                worst = &target;
        }
        out << text("%-34s %4zu of %4zu met, worst %.2f of %.2f: %s\n", kind.c_str(),
                    measured - missed, measured, worst->worst().times, worst->limit,
                    worst->worst().where.c_str());
    }
}

}  // namespace bench
