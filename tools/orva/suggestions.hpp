// What a mistyped word may have been meant to be.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orva::tool {

// ", did you mean 'WORD'?" with the known word that is nearest, or nothing where none is near.
// Upper and lower case are the same.
std::string suggestion(std::string_view typed, const std::vector<std::string>& known);

}  // namespace orva::tool
