// Carries out a plan on the rows of two images.
#pragma once

#include "picture/plan.hpp"

#include <cstddef>
#include <cstdint>

namespace orva::picture {

template <class Byte> struct PlaneRows {
    Byte* first = nullptr;  // row
    std::ptrdiff_t pitch = 0;
};

// The planes of PlaneIndex, but for alpha alone, which is the alpha plane.
template <class Byte> struct ImageRows { PlaneRows<Byte> planes[planeCount]; };

struct Area {
    ImageRows<const uint8_t> source;
    ImageRows<uint8_t> destination;
    size_t width;  // pixels, not 0
    size_t height;
};

// What is written past the cache, where whole lines of it come together: what only moves, and what
// is computed.
struct StreamingKinds {
    bool moves, computed;
};

void convertRows(const Plan& plan, const Kernels& kernels, const Area& area,
                 StreamingKinds streaming);

}  // namespace orva::picture
