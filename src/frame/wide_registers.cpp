// Loads the initial state of the upper halves of the AVX registers.
#include "frame/wide_registers.hpp"

#if defined(__i386__)

#include <cstdint>
#include <immintrin.h>

namespace orva {

// As xrstor expects it. A part of the state that `present` does not name is initialized, but MXCSR
// is loaded all the same.
struct alignas(64) SavedState {
    uint8_t x87[24];
    uint32_t mxcsr;
    uint8_t registers[484];
    uint64_t present, format, reserved[6];
};

[[gnu::target("xsave")]] void leaveWideRegisters() {
    constexpr uint64_t upperPartsOfAvx = 1 << 2;
    SavedState state;
    state.mxcsr = _mm_getcsr();
    state.present = state.format = 0;
    for (uint64_t& reserved : state.reserved)
        reserved = 0;
    _xrstor(&state, upperPartsOfAvx);
}

}  // namespace orva

#endif
