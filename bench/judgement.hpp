// Measurements held against what is expected of them.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

class Judgement {
public:
    // One more measurement of a target, which is met if none of them exceeds the limit. Targets of
    // one kind share a line of the summary. Nothing happens if nothing was measured.
    void expect(const std::string& kind, const std::string& name, double limit,
                std::optional<double> measured, const std::string& where);

    // A table of the targets and a list of what misses them.
    void write(std::ostream& out) const;
    // A line for each kind: how many measurements meet their targets, and the worst.
    void writeSummary(std::ostream& out) const;

private:
    struct Measured {
        double times;
        std::string where;
    };
    struct Target {
        std::string kind, name;
        double limit;
        std::vector<Measured> measured{};

        size_t missed() const;
        const Measured& worst() const;
    };
    std::vector<Target> targets;
};

}  // namespace bench
