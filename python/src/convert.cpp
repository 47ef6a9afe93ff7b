// The conversion as Python calls it: memory held, image by image, and others let run meanwhile.
#include "convert.hpp"

#include "arguments.hpp"
#include "picture.hpp"

#include <cstring>

namespace orva::python {
namespace {

// The library's names of arguments begin with what Python's callers know as something else.
const char* argumentOf(const char* field) {
    const auto beginsWith = [field](const char* start) {
        return std::strncmp(field, start, std::strlen(start)) == 0;
    };
    return beginsWith("source")        ? "src"
           : beginsWith("destination") ? "out"
           : beginsWith("rows")        ? "rows[0]"
                                       : field;
}

PyObject* refuseConversion(OrvaError& error) {
    char text[ORVA_DESCRIPTION_SIZE];
    error.field = argumentOf(error.field);
    orva_describe(&error, text, sizeof text);
    PyErr_SetString(PyExc_ValueError, text);
    return nullptr;
}

// What a conversion is asked for, but for the pictures.
struct Request {
    const OrvaFormatInfo* srcFormat = nullptr;
    const OrvaFormatInfo* dstFormat = nullptr;
    std::optional<std::uint32_t> width;
    std::optional<std::uint32_t> height;
    OrvaOptions options = ORVA_OPTIONS_INIT;
    Rows rows;
    PyObject* src = nullptr;
    PyObject* out = nullptr;    // None where there is none yet
    PyObject* empty = nullptr;  // makes one
};

bool readRequest(PyObject* args, Request& request) {
    PyObject *srcFormat, *dstFormat, *width, *height, *alphaObject, *rows;
    OrvaOptions& options = request.options;
    if (!PyArg_ParseTuple(args, "OOOOOOOIIIIIIOO:convert", &request.src, &srcFormat, &dstFormat,
                          &width, &height, &request.out, &request.empty, &options.srcMatrix,
                          &options.dstMatrix, &options.srcRange, &options.dstRange, &options.chroma,
                          &options.streaming, &alphaObject, &rows)) {
        return false;
    }
    std::uint32_t alpha = 0;
    if (!(request.srcFormat = readFormat("src_format", srcFormat)) ||
        !(request.dstFormat = readFormat("dst_format", dstFormat)) ||
        !readLength("width", width, request.width) ||
        !readLength("height", height, request.height) ||
        !readNumber("alpha", alphaObject, 255, alpha) || !readRows(rows, request.rows)) {
        return false;
    }
    options.alpha = static_cast<std::int32_t>(alpha);
    if (!orva_can_convert(request.srcFormat->format, request.dstFormat->format)) {
        return refuse("dst_format is %s: %s does not convert to it", request.dstFormat->name,
                      request.srcFormat->name);
    }
    return request.out != Py_None || rows == Py_None ||
           refuse("out is None: some rows are converted into a picture that is there");
}

}  // namespace

PyObject* convert(PyObject*, PyObject* args) {
    Request request;
    if (!readRequest(args, request)) {
        return nullptr;
    }
    Picture src("src", *request.srcFormat), dst("out", *request.dstFormat);
    std::optional<std::uint32_t>&width = request.width, &height = request.height;
    const bool given = request.out != Py_None;
    if (!src.hold(request.src, Access::read) || !src.inferSize(width, height) ||
        (given && !(dst.hold(request.out, Access::write) && dst.inferSize(width, height)))) {
        return nullptr;
    }
    if (!width || !height) {
        refuse("%s is needed: neither src nor out tells it", width ? "height" : "width");
        return nullptr;
    }
    OrvaImage source = {}, destination = {};
    if (!src.toImage(*width, *height, source)) {
        return nullptr;
    }
    const Owned made(given ? nullptr
                           : PyObject_CallFunction(request.empty, "sII", request.dstFormat->name,
                                                   *width, *height));
    if (!given && !(made && dst.hold(made.get(), Access::write))) {
        return nullptr;
    }
    if (!dst.toImage(*width, *height, destination)) {
        return nullptr;
    }

    OrvaError error = ORVA_ERROR_INIT;
    std::int32_t code = ORVA_DONE;
    Py_BEGIN_ALLOW_THREADS;
    code = orva_convert_rows(&source, &destination, &request.options, request.rows.first,
                             request.rows.count, &error);
    Py_END_ALLOW_THREADS;
    return code == ORVA_DONE ? Py_NewRef(given ? request.out : made.get())
                             : refuseConversion(error);
}

}  // namespace orva::python
