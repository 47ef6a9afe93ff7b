// The module orva._orva: the checked library as Python's functions. What they take and return is in
// _orva.pyi, what it means in __init__.py.
#include "arguments.hpp"
#include "convert.hpp"
#include "layout.hpp"

namespace orva::python {
namespace {

PyObject* version(PyObject*, PyObject*) { return PyUnicode_FromString(orva_version()); }

PyObject* instructionSet(PyObject*, PyObject*) {
    return PyUnicode_FromString(orva_instruction_set());
}

PyObject* formats(PyObject*, PyObject*) {
    const std::uint32_t count = orva_format_count();
    Owned list(PyList_New(count));
    if (!list) {
        return nullptr;
    }
    for (std::uint32_t i = 0; i < count; ++i) {
        const OrvaFormatInfo& info = *orva_format_info(i);
        const auto* planes = info.planes;
        PyObject* const row = Py_BuildValue(
            "ssIIO((BB)(BB)(BB)(BB))", info.name, info.otherNames, info.model, info.bits,
            info.hasAlpha ? Py_True : Py_False, planes[0].unitBytes, planes[0].unitPixels,
            planes[1].unitBytes, planes[1].unitPixels, planes[2].unitBytes, planes[2].unitPixels,
            planes[3].unitBytes, planes[3].unitPixels);
        if (!row) {
            return nullptr;
        }
        PyList_SetItem(list.get(), i, row);  // which takes the reference
    }
    return list.release();
}

PyObject* canConvert(PyObject*, PyObject* args) {
    PyObject *srcName, *dstName;
    if (!PyArg_ParseTuple(args, "OO:can_convert", &srcName, &dstName)) {
        return nullptr;
    }
    const OrvaFormatInfo* const src = readFormat("src_format", srcName);
    const OrvaFormatInfo* const dst = src ? readFormat("dst_format", dstName) : nullptr;
    return dst ? PyBool_FromLong(orva_can_convert(src->format, dst->format)) : nullptr;
}

// A format and a size, which frames are made of.
struct Frame {
    const OrvaFormatInfo* format = nullptr;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    Py_ssize_t bytes = 0;
};

bool readFrame(PyObject* args, Frame& frame) {
    PyObject *name, *width, *height;
    if (!PyArg_ParseTuple(args, "OOO", &name, &width, &height)) {
        return false;
    }
    frame.format = readFormat("format", name);
    return frame.format && readNumber("width", width, UINT32_MAX, frame.width) &&
           readNumber("height", height, UINT32_MAX, frame.height) &&
           readFrameBytes(*frame.format, frame.width, frame.height, frame.bytes);
}

PyObject* frameBytes(PyObject*, PyObject* args) {
    Frame frame;
    return readFrame(args, frame) ? PyLong_FromSsize_t(frame.bytes) : nullptr;
}

PyObject* planeShapes(PyObject*, PyObject* args) {
    Frame frame;
    if (!readFrame(args, frame)) {
        return nullptr;
    }
    const OrvaFormatInfo& format = *frame.format;
    const Py_ssize_t word = wordBytes(format);
    const char* const type = word == 1 ? "u1" : word == 2 ? "<u2" : "<u4";
    const Py_ssize_t height = frame.height;
    Owned list(PyList_New(0));
    for (std::uint32_t i = 0; list && i < ORVA_PLANE_COUNT; ++i) {
        if (format.planes[i].unitBytes == 0) {
            continue;
        }
        const auto pitch = static_cast<Py_ssize_t>(orva_frame_pitch(format.format, i, frame.width));
        const Py_ssize_t channels = layoutOf(format, i, word).channels;
        const Py_ssize_t columns = pitch / (channels * word);
        const Owned shape(channels > 1 ? Py_BuildValue("(nnn)s", height, columns, channels, type)
                                       : Py_BuildValue("(nn)s", height, columns, type));
        if (!shape || PyList_Append(list.get(), shape.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyMethodDef methods[] = {
    {"version", version, METH_NOARGS, "version()\n--\n\n"},
    {"instruction_set", instructionSet, METH_NOARGS, "instruction_set()\n--\n\n"},
    {"formats", formats, METH_NOARGS, "formats()\n--\n\n"},
    {"can_convert", canConvert, METH_VARARGS, "can_convert(src_format, dst_format, /)\n--\n\n"},
    {"frame_bytes", frameBytes, METH_VARARGS, "frame_bytes(format, width, height, /)\n--\n\n"},
    {"plane_shapes", planeShapes, METH_VARARGS, "plane_shapes(format, width, height, /)\n--\n\n"},
    {"convert", convert, METH_VARARGS,
     "convert(src, src_format, dst_format, width, height, out, empty, src_matrix, dst_matrix, "
     "src_range, dst_range, chroma, streaming, alpha, rows, /)\n--\n\n"},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "_orva", nullptr, 0, methods, nullptr, nullptr, nullptr, nullptr};

}  // namespace
}  // namespace orva::python

PyMODINIT_FUNC PyInit__orva() { return PyModuleDef_Init(&orva::python::definition); }
