// How much memory this machine has.
#pragma once

#include <cstdint>

namespace orva::tool {

// In bytes; UINT64_MAX where the system does not tell.
std::uint64_t physicalMemory();

}  // namespace orva::tool
