// What follows from a vector being one lane: every order is the memory's own. The wide types say
// what these functions mean.
#pragma once

namespace orva::ORVA_ISA {

ORVA_INLINE Vec128 spreadHalves(Vec128 a) { return a; }
ORVA_INLINE Vec128 groupHalves(Vec128 a) { return a; }
ORVA_INLINE Vec128 spreadQuarters(Vec128 a) { return a; }
ORVA_INLINE Vec128 groupQuarters(Vec128 a) { return a; }
ORVA_INLINE Vec128 evenLanes(Vec128 a, Vec128) { return a; }
ORVA_INLINE Vec128 oddLanes(Vec128, Vec128 b) { return b; }
ORVA_INLINE Vec128 zipLanesLow(Vec128 a, Vec128) { return a; }
ORVA_INLINE Vec128 zipLanesHigh(Vec128, Vec128 b) { return b; }

// In memory order, the dwords with even or odd numbers of a and then b.
ORVA_INLINE Vec128 everyEvenDword(Vec128 a, Vec128 b) { return evenDwords(a, b); }
ORVA_INLINE Vec128 everyOddDword(Vec128 a, Vec128 b) { return oddDwords(a, b); }

// In memory order, the dword before each of a's, with the last of `earlier` first.
ORVA_INLINE Vec128 previousDwords(Vec128 earlier, Vec128 a) {
    return bytesUp<4>(a) | bytesDown<12>(earlier);
}

}  // namespace orva::ORVA_ISA
