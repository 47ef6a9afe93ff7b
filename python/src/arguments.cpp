// Checks and conversions of single values.
#include "arguments.hpp"

#include <cstring>

namespace orva::python {

bool readNumber(const char* argument, PyObject* object, std::uint32_t most, std::uint32_t& number) {
    if (!PyIndex_Check(object)) {
        return refuseType("%s must be an int, not %R", argument, Py_TYPE(object));
    }
    const Owned index(PyNumber_Index(object));
    if (!index) {
        return false;
    }
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(index.get(), &overflow);
    if (overflow != 0) {  // perhaps of more digits than Python writes
        return refuse("%s is out of range: give a number from 0 to %u", argument, most);
    }
    if (value < 0 || value > most) {
        return refuse("%s is %lld: give a number from 0 to %u", argument, value, most);
    }
    number = static_cast<std::uint32_t>(value);
    return true;
}

bool readLength(const char* argument, PyObject* object, std::optional<std::uint32_t>& length) {
    return object == Py_None || readNumber(argument, object, UINT32_MAX, length.emplace());
}

bool readRows(PyObject* object, Rows& rows) {
    if (object == Py_None) {
        return true;
    }
    if (!PyTuple_Check(object) || PyTuple_Size(object) != 2) {
        return refuseType("rows must be a tuple (first, count), not %R", object);
    }
    return readNumber("rows[0]", PyTuple_GetItem(object, 0), UINT32_MAX, rows.first) &&
           readNumber("rows[1]", PyTuple_GetItem(object, 1), UINT32_MAX, rows.count);
}

const OrvaFormatInfo* readFormat(const char* argument, PyObject* object) {
    if (!PyUnicode_Check(object)) {
        refuseType("%s must be a str, not %R", argument, Py_TYPE(object));
        return nullptr;
    }
    Py_ssize_t length = 0;
    const char* name = PyUnicode_AsUTF8AndSize(object, &length);
    if (!name) {
        PyErr_Clear();  // half a surrogate pair, which is in no name
        name = "";
    }
    const bool whole = std::strlen(name) == static_cast<std::size_t>(length);
    const OrvaFormatInfo* info = whole ? orva_format_info(orva_format_named(name)) : nullptr;
    if (!info) {
        refuse("%s is %R: give a name that orva.formats() lists", argument, object);
    }
    return info;
}

bool readFrameBytes(const OrvaFormatInfo& format, std::uint32_t width, std::uint32_t height,
                    Py_ssize_t& bytes) {
    const std::uint64_t needed = orva_frame_bytes(format.format, width, height);
    if (needed > static_cast<std::uint64_t>(PY_SSIZE_T_MAX)) {
        return refuse("width is %u and height %u: no memory holds that much of %s", width, height,
                      format.name);
    }
    bytes = static_cast<Py_ssize_t>(needed);
    return true;
}

}  // namespace orva::python
