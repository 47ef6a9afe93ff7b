// The four bytes of every dword in an order that is chosen at run time.
#pragma once

#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

class Reorder {
public:
    // Byte k of each dword becomes what byte order[k] was.
    ORVA_INLINE explicit Reorder(const uint8_t (&order)[4]) {
#if ORVA_SHUFFLES_BYTES
        uint32_t pattern = 0;
        for (uint32_t k = 0; k < 4; ++k)
            pattern |= uint32_t(order[k]) << (8 * k);
        shuffle = add32(Wide::all32(pattern),
                        Wide::repeat(Vec128::of32(0, 0x04040404, 0x08080808, 0x0C0C0C0C)));
#else
        for (uint32_t k = 0; k < 4; ++k)
            from[k] = _mm_cvtsi32_si128(8 * order[k]);
#endif
    }

    ORVA_INLINE Wide operator()(Wide dwords) const {
#if ORVA_SHUFFLES_BYTES
        return shuffleBytes(dwords, shuffle);
#else
        return part<0>(dwords) | part<1>(dwords) | part<2>(dwords) | part<3>(dwords);
#endif
    }

private:
#if ORVA_SHUFFLES_BYTES
    Wide shuffle;
#else
    template <int k> ORVA_INLINE Vec128 part(Vec128 dwords) const {
        return shiftLeft32<8 * k>(Vec128{_mm_srl_epi32(dwords.v, from[k])} & Vec128::all32(0xFF));
    }

    __m128i from[4];  // how far right each byte lies, in bits
#endif
};

}  // namespace orva::ORVA_ISA
