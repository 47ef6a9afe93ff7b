// What a report begins with: where and how its times were measured.
#pragma once

#include "machine.hpp"

#include <string>

namespace bench {

// The samples as in "15 samples". With reuse, frames of all sizes are converted again and again.
std::string conditions(const std::string& samples, bool reuse, const Ring& ring);

}  // namespace bench
