// How much memory the program may use.
#include "memory.hpp"

#include "control_group.hpp"

#include <algorithm>

#if defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace orva::tool {

std::uint64_t usableMemory() {
    std::uint64_t memory = SIZE_MAX;  // what is addressable
#if defined(_WIN32)
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (GlobalMemoryStatusEx(&status)) {
        memory = std::min<std::uint64_t>(memory, status.ullTotalPhys);
    }
#else
    const long pages = sysconf(_SC_PHYS_PAGES), bytes = sysconf(_SC_PAGESIZE);
    if (pages > 0 && bytes > 0) {
        memory =
            std::min(memory, static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytes));
    }
    for (std::ifstream& file : openControls("memory.max")) {
        // Without a limit it says "max".
        if (std::uint64_t limit; file >> limit) {
            memory = std::min(memory, limit);
        }
    }
#endif
    return memory;
}

}  // namespace orva::tool
