// The scalar model: every conversion once more, plainly and pixel by pixel, for the tests to
// compare the library with. It shares no code with the library.
#pragma once

#include <orva/orva.h>

#include <string_view>

namespace reference {

// Runs the conversion whose export is "ORVA_SSE2_" + name + "_EX"; false if there is none.
bool convert(std::string_view name, const OrvaConversionDescriptor& conversion);

}  // namespace reference
