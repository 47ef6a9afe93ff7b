// How planes divide rows into units.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>

namespace orva {

template <class Number> constexpr Number roundUp(Number value, Number multiple) {
    return (value + multiple - 1) / multiple * multiple;
}

// Whole units before pixel x of a row. Divisors are constants, which takes a tenth of the time.
template <class Number> constexpr Number unitsBefore(PlaneInfo plane, Number x) {
    return plane.unitPixels == 1 ? x : plane.unitPixels == 2 ? x / 2 : x / 6;
}

// Bytes of the units that hold so many pixels; 0 for a plane that there is not.
template <class Number> constexpr Number bytesOfUnits(PlaneInfo plane, Number pixels) {
    return unitsBefore<Number>(plane, pixels + plane.unitPixels - 1) * plane.unitBytes;
}

}  // namespace orva
