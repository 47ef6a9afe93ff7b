// Planes as arrays: rows of columns, each of one or more samples.
#pragma once

#include "python.hpp"

#include <orva/convert.h>

#include <cstdint>

namespace orva::python {

// Bytes of the numbers that a format is made of: its samples, or V210's words of three.
constexpr Py_ssize_t wordBytes(const OrvaFormatInfo& format) {
    return format.bits == 8 ? 1 : format.format == ORVA_FORMAT_V210 ? 4 : 2;
}

struct Layout {
    Py_ssize_t unitColumns;  // columns that make up a unit
    Py_ssize_t channels;     // samples of a column: the last axis, which is left out if it is 1
};

// `itemBytes` are those of an array's items: wordBytes, or 1 for rows of V210's bytes.
constexpr Layout layoutOf(const OrvaFormatInfo& format, std::uint32_t plane, Py_ssize_t itemBytes) {
    const OrvaPlaneInfo& info = format.planes[plane];
    const Py_ssize_t items = info.unitBytes / itemBytes;
    if (format.format == ORVA_FORMAT_V210) {
        return {items, 1};
    }
    // Chroma has a column for each pair of pixels.
    const bool chroma = plane == ORVA_PLANE_CHROMA || plane == ORVA_PLANE_CR;
    const Py_ssize_t columns = chroma ? 1 : info.unitPixels;
    return {columns, items / columns};
}

}  // namespace orva::python
