// What kernels of wide vectors leave behind in 32-bit processes.
//
// Such kernels end with vzeroupper, which clears the upper parts of 8 registers there, not of
// all 16. Some processors (AMD's Zen 4 is one) keep taking the other 8 for used, and then run SSE
// code, the host's included, at a third of its speed until the next context switch.
#pragma once

namespace orva {

#if !defined(__i386__)
inline void leaveWideRegisters() {}
#else
// Loads the initial state of the upper parts, after which the processor takes none for used. Needs
// a processor and a system with AVX.
void leaveWideRegisters();
#endif

}  // namespace orva
