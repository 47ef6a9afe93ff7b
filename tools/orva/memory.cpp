// How much memory this machine has.
#include "memory.hpp"

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace orva::tool {

std::uint64_t physicalMemory() {
#if defined(_WIN32)
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : UINT64_MAX;
#else
    const long pages = sysconf(_SC_PHYS_PAGES), bytes = sysconf(_SC_PAGESIZE);
    return pages > 0 && bytes > 0
               ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytes)
               : UINT64_MAX;
#endif
}

}  // namespace orva::tool
