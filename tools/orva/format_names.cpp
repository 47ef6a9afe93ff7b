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

std::string nameOf(Format format) {
    const auto typed = typedNames.find(format);
    return typed == typedNames.end() ? std::string(formatInfo(format).name) : typed->second;
}

}  // namespace orva::tool
