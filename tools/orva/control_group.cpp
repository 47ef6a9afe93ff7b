// The limits that Linux sets a group of processes.
#include "control_group.hpp"

#include <string>

namespace orva::tool {

std::ifstream openControl(const char* name) {
    std::ifstream groups("/proc/self/cgroup");
    for (std::string group; std::getline(groups, group);) {
        if (group.starts_with("0::")) {
            return std::ifstream("/sys/fs/cgroup" + group.substr(3) + "/" + name);
        }
    }
    return std::ifstream();
}

}  // namespace orva::tool
