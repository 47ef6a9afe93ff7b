// What is wrong with a command line, in words that name what was typed.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace orva::tool {

// Of a command line that the app has just refused: what an unknown word may have been meant to be,
// and where help is.
std::string usageError(const CLI::App& app, const CLI::ParseError& error);

}  // namespace orva::tool
