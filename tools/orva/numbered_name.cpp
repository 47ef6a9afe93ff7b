// File names that hold the number of a frame.
#include "numbered_name.hpp"

#include "failure.hpp"

#include <algorithm>

namespace orva::tool {

NumberedName::NumberedName(const std::string& name) {
    constexpr std::size_t mostDigits = 99;  // more are no number's
    for (std::size_t i = 0; i < name.size(); ++i) {
        std::string& part = numbered ? after : before;
        if (name[i] != '%') {
            part += name[i];
            continue;
        }
        std::size_t end = i + 1, count = 0;
        for (; end < name.size() && name[end] >= '0' && name[end] <= '9' && count <= mostDigits;
             ++end) {
            count = count * 10 + static_cast<std::size_t>(name[end] - '0');
        }
        const char last = end < name.size() ? name[end] : '\0';
        if ((last == 'd' || last == 'i') && count <= mostDigits) {
            if (numbered) {
                throw Failure(name + ": holds more than one number");
            }
            numbered = true;
            digits = count;
            i = end;
        } else {
            part += '%';
            i += last == '%' && end == i + 1 ? 1 : 0;
        }
    }
}

std::string NumberedName::with(std::uint64_t number) const {
    if (!numbered) {
        return before;
    }
    const std::string text = std::to_string(number);
    return before + std::string(digits - std::min(digits, text.size()), '0') + text + after;
}

}  // namespace orva::tool
