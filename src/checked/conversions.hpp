// The library's conversions as pairs of formats.
#pragma once

#include <orva/convert.hpp>
#include <orva/orva.h>

namespace orva {

using Export = void(ORVA_CALL*)(const OrvaConversionDescriptor*);

// The export that converts one format into the other, or null.
Export exportFor(Format source, Format destination) noexcept;

}  // namespace orva
