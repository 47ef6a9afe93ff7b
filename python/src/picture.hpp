// A picture as Python's callers give it: anything whose memory can be looked at, used where it is.
#pragma once

#include "python.hpp"

#include <orva/convert.h>

#include <cstdint>
#include <optional>

namespace orva::python {

enum class Access { read, write };

// Keeps the memory in place from hold() until it is destroyed. All functions set an exception that
// names the argument, and return false, where they refuse.
class Picture {
public:
    // `argument` is what the caller knows the picture as.
    Picture(const char* argument, const OrvaFormatInfo& format);

    // Takes a raw frame (one dimension), an array (two or three), or a tuple or list of arrays, one
    // for each plane; None for a format without planes.
    bool hold(PyObject* object, Access access);

    // Sets what is empty and what the shapes tell: nothing of a raw frame, no width of V210, whose
    // rows end in a gap.
    bool inferSize(std::optional<std::uint32_t>& width, std::optional<std::uint32_t>& height) const;

    // The image in the held memory, which must have this size.
    bool toImage(std::uint32_t width, std::uint32_t height, OrvaImage& image) const;

private:
    struct HeldPlane {
        HeldPlane() = default;
        HeldPlane(const HeldPlane&) = delete;
        HeldPlane& operator=(const HeldPlane&) = delete;
        ~HeldPlane() { PyBuffer_Release(&view); }

        std::uint32_t index = 0;  // ORVA_PLANE_MAIN to ORVA_PLANE_ALPHA
        char argument[16] = "";   // "src", or "src[0]" of a tuple
        Py_buffer view = {};
    };

    bool holdPlane(PyObject* object, Access access, HeldPlane& plane);
    bool checkItems(const HeldPlane& plane, bool bytesWillDo) const;
    bool checkArray(const HeldPlane& plane) const;
    bool toPlane(const HeldPlane& held, std::uint32_t width, std::uint32_t height,
                 OrvaPlane& plane) const;

    const char* argument;
    const OrvaFormatInfo& format;
    int planeCount = 0;
    bool raw = false;
    HeldPlane planes[ORVA_PLANE_COUNT];
};

}  // namespace orva::python
