// File names that hold the number of a frame: "f%d.png" or, with at least four digits, "f%04d.png".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace orva::tool {

class NumberedName {
public:
    // "%i" is "%d", "%%" a percent sign; other percent signs stand for themselves. Fails if there
    // is more than one number.
    explicit NumberedName(const std::string& name);

    bool hasNumber() const { return numbered; }

    std::string with(std::uint64_t number) const;

private:
    std::string before;
    std::string after;
    std::size_t digits = 0;  // at least so many
    bool numbered = false;
};

}  // namespace orva::tool
