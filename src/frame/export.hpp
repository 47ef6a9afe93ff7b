// How exports are written: one line that says which kernels and which test selects among them.
//
//     ORVA_EX(A8P_A8P) { convert(activeKernels->alpha.copy, aligned::dst<32, 32>, d); }
//
// defines ORVA_SSE2_A8P_A8P_EX, whose descriptor is d.
#pragma once

#include "frame/active_kernels.hpp"
#include "frame/alignment.hpp"
#include "frame/wide_registers.hpp"

namespace orva {

inline void convert(Kernel kernel, bool (*isAligned)(const Descriptor&), const Descriptor* d) {
    kernel(*d, {.fast = isAligned(*d), .streaming = d->streamingStores != 0});
    if (activeKernels->useWideRegisters)
        leaveWideRegisters();
}

inline void convert(const ModeTable& kernels, bool (*isAligned)(const Descriptor&),
                    const Descriptor* d) {
    convert(kernels.of(*d), isAligned, d);
}

}  // namespace orva

#define ORVA_EX(formats) void ORVA_CALL ORVA_SSE2_##formats##_EX(const OrvaConversionDescriptor* d)
