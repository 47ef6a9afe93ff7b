// Text made of numbers.
#pragma once

#include <string>

namespace bench {

// printf into a string.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

}  // namespace bench
