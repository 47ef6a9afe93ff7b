// What is at work: this program, the processor's instruction set, the libraries.
#pragma once

#include <string>

namespace orva::tool {

// A few lines without a line end behind the last one.
std::string versionText();

}  // namespace orva::tool
