// How many processors the program may keep busy.
#include "processors.hpp"

#include "control_group.hpp"

#include <algorithm>
#include <cmath>
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

// What the control group (version 2) allows, in processors; 0 if it sets no limit.
unsigned allowed() {
    std::ifstream limit = openControl("cpu.max");
    double time, period;
    return limit >> time >> period ? static_cast<unsigned>(std::ceil(time / period)) : 0;
}

}  // namespace

unsigned usableProcessors() {
    const unsigned processors = std::max(scheduledOn(), 1u);
    const unsigned limit = allowed();
    return limit > 0 ? std::min(processors, limit) : processors;
}

#else

unsigned usableProcessors() { return std::max(std::thread::hardware_concurrency(), 1u); }

#endif

}  // namespace orva::tool
