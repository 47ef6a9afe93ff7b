// From Python's buffers to the library's images: every shape and stride is checked here.
#include "picture.hpp"

#include "arguments.hpp"
#include "layout.hpp"

#include <cstdio>
#include <cstring>

namespace orva::python {
namespace {

// Bytes of unsigned little-endian items; 0 for any others.
Py_ssize_t unsignedItemBytes(const Py_buffer& view) {
    const char* code = view.format ? view.format : "B";
    if (*code != '\0' && std::strchr("@=<|", *code)) {
        ++code;
    }
    if (code[0] == '\0' || code[1] != '\0') {
        return 0;
    }
    const Py_ssize_t bytes = std::strchr("Bc", *code)   ? 1
                             : *code == 'H'             ? 2
                             : std::strchr("IL", *code) ? 4
                                                        : 0;
    return bytes == view.itemsize ? bytes : 0;
}

// What an object says when it does not show its memory may come without the argument's name.
bool nameArgument(const char* argument) {
    if (PyErr_ExceptionMatches(PyExc_BufferError) || PyErr_ExceptionMatches(PyExc_ValueError)) {
        PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
        PyErr_Fetch(&type, &value, &traceback);
        const Owned ownedType(type), ownedValue(value), ownedTraceback(traceback);
        return refuse("%s: %S", argument, value ? value : Py_None);
    }
    return false;
}

OrvaPlane& planeOf(OrvaImage& image, std::uint32_t index) {
    OrvaPlane* const planes[] = {&image.main, &image.chroma, &image.cr, &image.alpha};
    return *planes[index];
}

}  // namespace

Picture::Picture(const char* argument, const OrvaFormatInfo& format)
    : argument(argument), format(format) {
    for (std::uint32_t index = 0; index < ORVA_PLANE_COUNT; ++index) {
        if (format.planes[index].unitBytes > 0) {
            planes[planeCount++].index = index;
        }
    }
}

bool Picture::hold(PyObject* object, Access access) {
    if (planeCount == 0) {
        return object == Py_None ||
               refuse("%s must be None: %s has no memory", argument, format.name);
    }
    if (!PyTuple_Check(object) && !PyList_Check(object)) {
        HeldPlane& plane = planes[0];
        std::snprintf(plane.argument, sizeof plane.argument, "%s", argument);
        if (!holdPlane(object, access, plane)) {
            return false;
        }
        raw = plane.view.ndim == 1;
        if (raw) {
            return checkItems(plane, true) &&
                   (PyBuffer_IsContiguous(&plane.view, 'C') ||
                    refuse("%s is a raw frame with gaps: give its bytes one behind the other",
                           argument));
        }
        if (planeCount > 1) {
            return refuse("%s must be a raw frame in one dimension or a tuple of arrays: %s has %d "
                          "planes",
                          argument, format.name, planeCount);
        }
        return checkArray(plane);
    }
    // A list may change while its items are asked for their memory.
    const Owned items(PySequence_Tuple(object));
    if (!items) {
        return false;
    }
    if (PyTuple_Size(items.get()) != planeCount) {
        return refuse("%s has %zd planes: %s has %d", argument, PyTuple_Size(items.get()),
                      format.name, planeCount);
    }
    for (int i = 0; i < planeCount; ++i) {
        std::snprintf(planes[i].argument, sizeof planes[i].argument, "%s[%d]", argument, i);
        if (!holdPlane(PyTuple_GetItem(items.get(), i), access, planes[i]) ||
            !checkArray(planes[i])) {
            return false;
        }
    }
    return true;
}

bool Picture::holdPlane(PyObject* object, Access access, HeldPlane& plane) {
    if (!PyObject_CheckBuffer(object)) {
        return refuseType("%s must be an array or bytes-like, with the buffer protocol, not %R",
                          plane.argument, Py_TYPE(object));
    }
    if (PyObject_GetBuffer(object, &plane.view, PyBUF_RECORDS_RO) != 0) {
        return nameArgument(plane.argument);
    }
    if (access == Access::write && plane.view.readonly) {
        return refuse("%s is read-only: give memory that may be written", plane.argument);
    }
    return true;
}

bool Picture::checkItems(const HeldPlane& plane, bool bytesWillDo) const {
    const Py_ssize_t bytes = unsignedItemBytes(plane.view), word = wordBytes(format);
    return bytes == word || (bytes == 1 && bytesWillDo) ||
           refuse("%s has items of format '%s': %s has little-endian uint%zd%s", plane.argument,
                  plane.view.format ? plane.view.format : "B", format.name, 8 * word,
                  word > 1 && bytesWillDo ? ", or bytes" : "");
}

bool Picture::checkArray(const HeldPlane& plane) const {
    const Py_buffer& view = plane.view;
    if (!checkItems(plane, format.format == ORVA_FORMAT_V210)) {
        return false;
    }
    const Layout layout = layoutOf(format, plane.index, view.itemsize);
    if (view.ndim != (layout.channels > 1 ? 3 : 2) ||
        (view.ndim == 3 && view.shape[2] != layout.channels)) {
        const char* columns = format.format == ORVA_FORMAT_V210 ? "bytes or words"
                              : format.planes[plane.index].unitPixels > layout.unitColumns
                                  ? "width / 2"
                                  : "width";
        if (layout.channels > 1) {
            return refuse("%s must have the shape (height, %s, %zd) for %s", plane.argument,
                          columns, layout.channels, format.name);
        }
        return refuse("%s must have the shape (height, %s) for %s", plane.argument, columns,
                      format.name);
    }
    // Some exporters leave the strides out where there are no gaps at all.
    if (view.len == 0 || !view.strides) {
        return true;
    }
    // Along axes of length 1 nothing moves, so that their strides mean nothing.
    Py_ssize_t expected = view.itemsize;
    for (int axis = view.ndim - 1; axis > 0; --axis) {
        if (view.shape[axis] > 1 && view.strides[axis] != expected) {
            return refuse("%s has gaps between the pixels of a row: only rows may have any stride",
                          plane.argument);
        }
        expected *= view.shape[axis];
    }
    return true;
}

bool Picture::inferSize(std::optional<std::uint32_t>& width,
                        std::optional<std::uint32_t>& height) const {
    if (planeCount == 0 || raw) {
        return true;
    }
    const HeldPlane& main = planes[0];
    const Py_ssize_t rows = main.view.shape[0], columns = main.view.shape[1];
    if (rows > UINT32_MAX || columns > UINT32_MAX) {
        return refuse("%s has %zd rows of %zd columns: a picture has at most %u", main.argument,
                      rows, columns, UINT32_MAX);
    }
    if (!height) {
        height = static_cast<std::uint32_t>(rows);
    }
    if (!width && format.format != ORVA_FORMAT_V210) {
        width = static_cast<std::uint32_t>(columns);
    }
    return true;
}

bool Picture::toImage(std::uint32_t width, std::uint32_t height, OrvaImage& image) const {
    image = {sizeof image, format.format, width, height, {}, {}, {}, {}};
    if (raw) {
        const Py_buffer& view = planes[0].view;
        Py_ssize_t bytes = 0;
        if (!readFrameBytes(format, width, height, bytes)) {
            return false;
        }
        if (view.len != bytes) {
            return refuse("%s has %zd bytes: a raw %s frame of %u x %u has %zd", argument, view.len,
                          format.name, width, height, bytes);
        }
        OrvaError error = ORVA_ERROR_INIT;
        return orva_frame_image(&image, format.format, width, height, view.buf,
                                static_cast<std::size_t>(view.len), &error) == ORVA_DONE ||
               refuse("%s: %s", argument, error.advice);
    }
    for (int i = 0; i < planeCount; ++i) {
        if (!toPlane(planes[i], width, height, planeOf(image, planes[i].index))) {
            return false;
        }
    }
    return true;
}

bool Picture::toPlane(const HeldPlane& held, std::uint32_t width, std::uint32_t height,
                      OrvaPlane& plane) const {
    const Py_buffer& view = held.view;
    if (view.shape[0] != height) {
        return refuse("%s has %zd rows: the picture's height is %u", held.argument, view.shape[0],
                      height);
    }
    // In memory V210 may have the gap behind its rows that it has in files.
    const Py_ssize_t columnBytes =
        layoutOf(format, held.index, view.itemsize).channels * view.itemsize;
    const auto row = static_cast<Py_ssize_t>(orva_row_bytes(format.format, held.index, width));
    const auto padded = static_cast<Py_ssize_t>(orva_frame_pitch(format.format, held.index, width));
    if (view.shape[1] < row / columnBytes || view.shape[1] > padded / columnBytes) {
        return refuse("%s has %zd columns: with a width of %u, %s has %zd", held.argument,
                      view.shape[1], width, format.name, row / columnBytes);
    }
    if (width == 0 || height == 0) {
        return true;
    }
    const Py_ssize_t stride = height == 1    ? row
                              : view.strides ? view.strides[0]
                                             : view.len / view.shape[0];
    if (stride > -row && stride < row) {
        return refuse("%s has rows that overlap: strides[0] is %zd, a row %zd bytes", held.argument,
                      stride, row);
    }
    // Strides may have been made up by hand.
    Py_ssize_t lastRow = 0;
    if (__builtin_mul_overflow(stride, static_cast<Py_ssize_t>(height) - 1, &lastRow) ||
        lastRow > PY_SSIZE_T_MAX - row || lastRow < row - PY_SSIZE_T_MAX) {
        return refuse("%s has a stride of %zd: no memory has rows so far apart", held.argument,
                      stride);
    }
    plane.data = static_cast<char*>(view.buf) + (lastRow < 0 ? lastRow : 0);
    plane.size = static_cast<std::size_t>((lastRow < 0 ? -lastRow : lastRow) + row);
    plane.pitch = stride;
    return true;
}

}  // namespace orva::python
