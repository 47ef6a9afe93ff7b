// The function that all others are there for.
#pragma once

#include "python.hpp"

namespace orva::python {

PyObject* convert(PyObject* module, PyObject* args);

}  // namespace orva::python
