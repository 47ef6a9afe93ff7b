// What a long run is at.
#include "progress.hpp"

#include "text.hpp"

#include <unistd.h>

#include <iostream>

namespace bench {

Progress::~Progress() {
    if (isatty(STDERR_FILENO))
        std::cerr << "\r\33[K";
}

void Progress::next(const std::string& what) {
    ++step;
    if (isatty(STDERR_FILENO))
        std::cerr << text("\r\33[K%zu of %zu: %s", step, steps, what.c_str());
}

}  // namespace bench
