// One call of one conversion: its planes laid out with guard zones around them, and the comparison
// of what the library and the scalar model did to them.
#pragma once

#include "golden/exports.hpp"
#include "support/data.hpp"

#include <optional>

namespace test {

using orva::golden::Export;
using orva::golden::exports;
using orva::golden::Format;

// The geometry that a case chooses; addresses and pitches follow from it.
struct Shape {
    uint32_t width = 0, height = 3;
    uint32_t linesBelow = 0;  // by which dstHeight exceeds srcHeight
    // Addresses of the first rows modulo 64, and row gaps.
    uint32_t srcOffset = 0, srcAlphaOffset = 0, dstOffset = 0, dstAlphaOffset = 0;
    int32_t srcGap = 0, srcAlphaGap = 0, dstGap = 0, dstAlphaGap = 0;
    // Where they are given, pitches do not agree with the gaps and only select kernels.
    std::optional<int32_t> srcPitch, dstPitch, dstAlphaPitch;
};

Shape randomShape(Random& random);

// Colours, flags, constant alpha and modes at random, as well as the fields that nothing reads.
OrvaConversionDescriptor randomOptions(Random& random);

// Changes a shape as little as possible so that it keeps what the conversion asks of its caller.
void keepContract(const Export& conversion, Shape& shape);

// Runs the library and the model on the same source and on destinations that are poisoned
// differently, and compares all of memory around the planes. Reports differences as test failures.
bool agree(const Export& conversion, const Shape& shape, const OrvaConversionDescriptor& options,
           Random& random);

}  // namespace test
