// Text made of numbers.
#pragma once

#include <string>
#include <vector>

namespace bench {

// printf into a string.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

// "a, b, c"
std::string joined(const std::vector<std::string>& words);

}  // namespace bench
