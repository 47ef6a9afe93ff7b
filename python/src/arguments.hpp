// Numbers and names of formats, as Python's callers give them. All functions set an exception that
// names the argument, and return false or null, where they refuse.
#pragma once

#include "python.hpp"

#include <orva/convert.h>

#include <cstdint>
#include <optional>

namespace orva::python {

// A whole number from 0 to `most`.
bool readNumber(const char* argument, PyObject* object, std::uint32_t most, std::uint32_t& number);

// A width or height; None leaves it empty.
bool readLength(const char* argument, PyObject* object, std::optional<std::uint32_t>& length);

// None is all rows, else a tuple of the first one and how many.
struct Rows {
    std::uint32_t first = 0;
    std::uint32_t count = UINT32_MAX;
};
bool readRows(PyObject* object, Rows& rows);

const OrvaFormatInfo* readFormat(const char* argument, PyObject* object);

// Bytes of a raw frame, which are no more than Python's objects can have.
bool readFrameBytes(const OrvaFormatInfo& format, std::uint32_t width, std::uint32_t height,
                    Py_ssize_t& bytes);

}  // namespace orva::python
