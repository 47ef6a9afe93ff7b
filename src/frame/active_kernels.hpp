// The tables of kernels, one per instruction set, and the one in use.
#pragma once

#include "frame/kernel.hpp"

namespace orva {

struct AlphaKernels;
struct RgbKernels;
struct YuvToRgbKernels;

struct Kernels {
    const AlphaKernels& alpha;
    const RgbKernels& rgb;
    const YuvToRgbKernels& yuvToRgb;
};

enum class InstructionSet { sse2 };
inline constexpr InstructionSet instructionSets[] = {InstructionSet::sse2};
const char* nameOf(InstructionSet set);

// Null where this processor or its system does not support the instruction set.
const Kernels* kernelsFor(InstructionSet set);

// Chosen once when the library is loaded, the best that the processor supports; only tests change
// it.
extern const Kernels* activeKernels;

}  // namespace orva
