// Images over raw frames, and crops.
#include "checked/validate.hpp"
#include "picture/formats.hpp"
#include "picture/units.hpp"

using namespace orva;

int32_t orva_frame_image(OrvaImage* image, OrvaFormat format, uint32_t width, uint32_t height,
                         void* data, size_t size, OrvaError* error) {
    const std::uint64_t needed = orva_frame_bytes(format, width, height);
    if (const Refusal refusal = validateFrame(image, format, needed, data, size, error)) {
        return tell(refusal, error);
    }
    *image = {sizeof *image, format, width, height, {}, {}, {}, {}};
    auto* next = static_cast<std::byte*>(data);
    std::uint32_t index = 0;
    for (OrvaPlane* const plane : planesOf(*image)) {
        // A frame that has no bytes may have a pitch that no memory has.
        const auto pitch = static_cast<size_t>(orva_frame_pitch(format, index, width));
        if (pitch > 0) {
            *plane = {next, pitch * height, static_cast<ptrdiff_t>(pitch)};
            next += pitch * height;
        }
        ++index;
    }
    return ORVA_DONE;
}

int32_t orva_crop(OrvaImage* image, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                  OrvaError* error) {
    if (const Refusal refusal = validateCrop(image, x, y, width, height, error)) {
        return tell(refusal, error);
    }
    std::uint32_t index = 0;
    for (OrvaPlane* const plane : planesOf(*image)) {
        const PlaneInfo info = picture::formatTable[image->format].planes[index++];
        if (info.unitBytes == 0) {
            continue;
        }
        if (width == 0 || height == 0) {
            plane->size = 0;
            continue;
        }
        const auto pitch = static_cast<size_t>(magnitude(plane->pitch));
        const size_t rowsBefore = plane->pitch < 0 ? image->height - y - height : y;
        plane->data = static_cast<std::byte*>(plane->data) + rowsBefore * pitch +
                      unitsBefore<size_t>(info, x) * info.unitBytes;
        plane->size = (height - 1) * pitch + bytesOfUnits<size_t>(info, width);
    }
    image->width = width;
    image->height = height;
    return ORVA_DONE;
}
