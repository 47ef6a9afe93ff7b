// Fields of the library's structures as the user knows them: options.dstMatrix is --dst-matrix,
// and what is told of the images' planes is told of the files.
#include "refusals.hpp"

#include <cctype>

namespace orva::tool {
namespace {

std::string optionNamed(std::string_view field) {
    std::string name = "--";
    for (const char letter : field) {
        if (std::isupper(static_cast<unsigned char>(letter))) {
            name += '-';
        }
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return name;
}

}  // namespace

Failure refusal(const Result& result) {
    constexpr std::string_view options = "options.", source = "source";
    if (result.field.starts_with(options)) {
        // The library's advice gives the numbers that stand for the option's words.
        return Failure(optionNamed(result.field.substr(options.size())) +
                       ": not possible in this conversion");
    }
    const bool read = result.field.starts_with(source);
    return Failure(std::string(read ? "the frame that is read" : "the frame that is written") +
                   " cannot be converted: " + std::string(result.advice));
}

}  // namespace orva::tool
