// How each kind of conversion is run so that its picture is right.
#pragma once

#include "conversions.hpp"
#include "region.hpp"

namespace orva {

// A step that converts the rows of a region with the formats of its two sides.
using Path = void (*)(const Region& region, const OrvaConversionDescriptor& options);

struct ColourStep {
    Path run = nullptr;  // null: the library writes another layout than the named one
    std::uintptr_t destinationAlignment = 1;  // that the kernels need of each row
};

// The step from one format to another that has an export of its own.
ColourStep colourStep(Format source, Format destination, bool matricesDiffer);

// Alpha planes: from one to another, and a constant into one.
void copyAlpha(const Region& region, const OrvaConversionDescriptor& options);
void fillAlpha(const Region& region, const OrvaConversionDescriptor& options);

}  // namespace orva
