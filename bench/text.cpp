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

}  // namespace bench
