// Measurements held against what is expected of them.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

class Judgement {
public:
    // One more measurement of a target, which is met if none of them exceeds the limit. Nothing
    // happens if nothing was measured.
    void expect(const std::string& name, double limit, std::optional<double> measured,
                const std::string& where);

    // A table of the targets and a list of what misses them. False if anything does.
    bool write(std::ostream& out);

private:
    struct Target {
        std::string name;
        double limit;
        std::vector<std::pair<double, std::string>> measured{};
    };
    std::vector<Target> targets;
};

}  // namespace bench
