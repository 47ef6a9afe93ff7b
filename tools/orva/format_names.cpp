// Formats by name. What was typed is kept for the whole program: it runs one command.
#include "format_names.hpp"

#include "failure.hpp"
#include "frames.hpp"
#include "suggestions.hpp"

#include <map>
#include <sstream>
#include <vector>

namespace orva::tool {
namespace {

std::map<Format, std::string> typedNames;

std::vector<std::string> knownNames() {
    std::vector<std::string> names;
    for (const FormatInfo& info : formats()) {
        names.emplace_back(info.name);
        std::istringstream others{std::string(info.otherNames)};
        for (std::string name; others >> name;) {
            names.push_back(name);
        }
    }
    return names;
}

// Whether names may have a letter for each byte of a pixel, one of them for alpha.
bool hasAlphaByte(const FormatInfo& info) {
    return info.model == Model::rgb && info.planes[mainPlane].unitBytes == 4;
}

}  // namespace

Format formatTyped(const std::string& text) {
    const auto format = formatNamed(text);
    if (!format) {
        const std::string near = suggestion(text, knownNames());
        throw Failure("unknown format '" + text + "'" + near + (near.empty() ? ";" : "") +
                      " 'orva formats' lists them");
    }
    if (!inFiles(*format)) {
        throw Failure(text + " has no planes, so no file holds it");
    }
    typedNames[*format] = text;
    return *format;
}

std::optional<std::size_t> paddingTyped(const std::string& text) {
    const auto format = formatNamed(text);
    if (!format || !hasAlphaByte(formatInfo(*format))) {
        return std::nullopt;
    }
    const std::size_t place = text.find_first_of("xX0");
    return place < text.size() ? std::optional(place) : std::nullopt;
}

std::string nameOf(Format format) {
    const auto typed = typedNames.find(format);
    return typed == typedNames.end() ? std::string(formatInfo(format).name) : typed->second;
}

}  // namespace orva::tool
