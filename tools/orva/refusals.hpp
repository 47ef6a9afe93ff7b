// What the library refuses, told with the options and arguments of the program.
#pragma once

#include "failure.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

Failure refusal(const Result& result);

}  // namespace orva::tool
