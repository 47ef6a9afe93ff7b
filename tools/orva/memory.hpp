// How much memory the program may use.
#pragma once

#include <cstdint>

namespace orva::tool {

// In bytes: what the machine and, on Linux, the program's control groups have, but no more than it
// can address; all of that where the system does not tell.
std::uint64_t usableMemory();

}  // namespace orva::tool
