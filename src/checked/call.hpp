// One call of an export on a region.
#pragma once

#include "conversions.hpp"
#include "region.hpp"

namespace orva {

// Which kernel an export is to choose. The general one is always allowed to; the fast one runs if
// the pointers and the width pass the export's test, for the pitches are made to pass it.
enum class Kernel : bool { general, fast };

// Runs the export on the region. `options` holds the descriptor's colour fields, alphaValue and
// streamingStores; the rest is set here. `alphaAdvance` is how far the kernel moves the source's
// alpha pointer along a row.
void callExport(Export function, const Region& region, const OrvaConversionDescriptor& options,
                Kernel kernel, std::uint32_t alphaAdvance);

inline void callExport(Export function, const Region& region,
                       const OrvaConversionDescriptor& options, Kernel kernel) {
    callExport(function, region, options, kernel, region.width);
}

}  // namespace orva
