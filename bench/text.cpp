// Text made of numbers.
#include "text.hpp"

#include <cstdarg>
#include <cstdio>

namespace bench {

std::string text(const char* format, ...) {
    char buffer[512];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

std::string joined(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + word;
    return list;
}

}  // namespace bench
