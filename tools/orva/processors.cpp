// How many processors the program may keep busy.
#include "processors.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
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
    std::ifstream groups("/proc/self/cgroup");
    for (std::string group; std::getline(groups, group);) {
        if (group.starts_with("0::")) {
            std::ifstream limit("/sys/fs/cgroup" + group.substr(3) + "/cpu.max");
            double time, period;
            return limit >> time >> period ? static_cast<unsigned>(std::ceil(time / period)) : 0;
        }
    }
    return 0;
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
