// How much memory this machine has.
#include "memory.hpp"

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

std::uint64_t physicalMemory() {
    constexpr std::uint64_t addressable = SIZE_MAX;
#if defined(_WIN32)
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? std::min<std::uint64_t>(status.ullTotalPhys, addressable)
                                         : addressable;
#else
    const long pages = sysconf(_SC_PHYS_PAGES), bytes = sysconf(_SC_PAGESIZE);
    return pages > 0 && bytes > 0
               ? std::min(static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytes),
                          addressable)
               : addressable;
#endif
}

}  // namespace orva::tool
