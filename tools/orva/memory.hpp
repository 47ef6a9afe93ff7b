// How much memory this machine has.
#pragma once

#include <cstdint>

namespace orva::tool {

// In bytes, of which a program can use no more than it can address; all of these where the system
// does not tell.
std::uint64_t physicalMemory();

}  // namespace orva::tool
