// BGR pixels in vectors: four bytes each, in memory order.
//
// The fourth byte is part of a pixel. Alpha is not: it is a plane, or the descriptor's constant.
#pragma once

#include "frame/kernel.hpp"
#include "simd/vector.hpp"

namespace orva::ORVA_ISA {

// 8 * V::lanes pixels.
template <class V> struct Pixels8 { V a, b; };

// 16 * V::lanes pixels.
template <class V> struct Pixels16 { V a, b, c, d; };

}  // namespace orva::ORVA_ISA
