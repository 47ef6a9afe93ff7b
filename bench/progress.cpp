// What a long run is at, and how long it still takes.
#include "progress.hpp"

#include "text.hpp"

#include <unistd.h>

#include <iostream>

namespace bench {

static std::string minutes(double seconds) {
    return text("%d:%02d", int(seconds) / 60, int(seconds) % 60);
}

static double secondsSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

Progress::Progress(const std::string& what, size_t steps)
    : steps(steps), isTerminal(isatty(STDERR_FILENO) != 0) {
    std::cerr << "Measuring " << what << "\n";
}

Progress::~Progress() {
    std::cerr << (isTerminal ? "\r\33[K" : "")
              << text("%zu of %zu in %s\n", done, steps, minutes(secondsSince(begin)).c_str());
}

void Progress::next(const std::string& name) {
    const size_t over = done++;
    if (!isTerminal && (over == 0 || secondsSince(shown) < 30))
        return;
    shown = Clock::now();
    const double elapsed = secondsSince(begin);
    std::string line =
        text("%zu of %zu: %s, %s so far", done, steps, name.c_str(), minutes(elapsed).c_str());
    if (over > 0)
        line += text(", about %s to go",
                     minutes(elapsed / double(over) * double(steps - over)).c_str());
    std::cerr << (isTerminal ? "\r\33[K" + line : line + "\n") << std::flush;
}

}  // namespace bench
