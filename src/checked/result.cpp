// The text of a result.
#include <orva/convert.hpp>

namespace orva {

std::string Result::describe() const {
    if (*this) {
        return "done";
    }
    std::string text(field);
    text += " is " + std::to_string(value) + ": ";
    text += advice;
    return text;
}

}  // namespace orva
