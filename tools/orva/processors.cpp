// How many processors the program may keep busy.
#include "processors.hpp"

#include "control_group.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

#if defined(__linux__)
#include <sched.h>
#endif

namespace orva::tool {

#if defined(__linux__)

namespace {

unsigned scheduledOn() {
    cpu_set_t set;
    return sched_getaffinity(0, sizeof set, &set) == 0 ? static_cast<unsigned>(CPU_COUNT(&set))
                                                       : std::thread::hardware_concurrency();
}

// What the control groups allow, in processors.
double allowed() {
    double processors = std::numeric_limits<double>::infinity();
    for (std::ifstream& file : openControls("cpu.max")) {
        // Without a limit the time is "max".
        if (double time, period; file >> time >> period) {
            processors = std::min(processors, time / period);
        }
    }
    return processors;
}

}  // namespace

unsigned usableProcessors() {
    const double processors = std::min<double>(scheduledOn(), std::ceil(allowed()));
    return static_cast<unsigned>(std::max(processors, 1.0));
}

#else

unsigned usableProcessors() { return std::max(std::thread::hardware_concurrency(), 1u); }

#endif

}  // namespace orva::tool
