// Python's C interface, as far as every version from 3.11 on has it, and what all files use of it.
#pragma once

#define Py_LIMITED_API 0x030b0000
#include <Python.h>

#include <utility>

namespace orva::python {

// A reference that is given back; null where Python has an exception set.
class Owned {
public:
    explicit Owned(PyObject* object) : object(object) {}
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { Py_XDECREF(object); }

    explicit operator bool() const { return object != nullptr; }
    PyObject* get() const { return object; }
    PyObject* release() { return std::exchange(object, nullptr); }

private:
    PyObject* object;
};

// Both set an exception and return false.
template <class... Values> bool refuse(const char* text, Values... values) {
    PyErr_Format(PyExc_ValueError, text, values...);
    return false;
}
template <class... Values> bool refuseType(const char* text, Values... values) {
    PyErr_Format(PyExc_TypeError, text, values...);
    return false;
}

}  // namespace orva::python
