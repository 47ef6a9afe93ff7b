// The engine's tables, one per instruction set, and the one in use.
#pragma once

#include "frame/instruction_sets.hpp"

namespace orva::picture {

struct Kernels;

using Table = TableOf<Kernels>;
extern const Tables<Kernels> tables;

// That of the newest instruction set that is supported, chosen once when the library is loaded.
// Only tests and benchmarks change it.
extern const Kernels* activeKernels;

}  // namespace orva::picture
