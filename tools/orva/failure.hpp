// What stops a command: its text goes to the user, the program ends with status 2.
#pragma once

#include <stdexcept>
#include <string>

namespace orva::tool {

struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace orva::tool
