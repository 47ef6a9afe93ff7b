// What a long run is at, and how long it still takes.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace bench {

// On a terminal one line of standard error that follows the run; elsewhere a line every half
// minute.
class Progress {
public:
    // Says first what is measured, as "95 conversions at 1920x1080".
    Progress(const std::string& what, size_t steps);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // The step of this name begins, and the one before is over.
    void next(const std::string& name);

private:
    using Clock = std::chrono::steady_clock;

    size_t steps, done = 0;
    bool isTerminal;
    Clock::time_point begin = Clock::now(), shown = begin;
};

}  // namespace bench
