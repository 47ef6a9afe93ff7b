// The checks of images and options: the only place that refuses them.
#include "checked/validate.hpp"

#include "picture/formats.hpp"
#include "picture/units.hpp"

#include <functional>

namespace orva {
namespace {

struct PlaneFields {
    const char* data;
    const char* size;
    const char* pitch;
};

// What the parts of an image are called.
struct ImageFields {
    const char* image;
    const char* structSize;
    const char* format;
    const char* width;
    const char* height;
    std::array<PlaneFields, planeCount> planes;
};

#define ORVA_PLANE_FIELDS(plane)                                                                   \
    { plane ".data", plane ".size", plane ".pitch" }
#define ORVA_IMAGE_FIELDS(image)                                                                   \
    {                                                                                              \
        image, image ".structSize", image ".format", image ".width", image ".height", {            \
            {                                                                                      \
                ORVA_PLANE_FIELDS(image ".main"), ORVA_PLANE_FIELDS(image ".chroma"),              \
                    ORVA_PLANE_FIELDS(image ".cr"), ORVA_PLANE_FIELDS(image ".alpha")              \
            }                                                                                      \
        }                                                                                          \
    }
constexpr ImageFields sourceFields = ORVA_IMAGE_FIELDS("source");
constexpr ImageFields destinationFields = ORVA_IMAGE_FIELDS("destination");
constexpr ImageFields imageFields = ORVA_IMAGE_FIELDS("image");
#undef ORVA_IMAGE_FIELDS
#undef ORVA_PLANE_FIELDS

// The part of a plane that its rows span, gaps between them included.
struct Extent {
    const std::byte *begin, *end;
    std::ptrdiff_t pitch;
    PlaneInfo info;
    std::uint8_t plane;
};

// Those of the planes that an image has.
struct Extents {
    std::array<Extent, planeCount> list;
    std::size_t count = 0;
};

// No object, and no distance within one, is larger.
constexpr auto mostBytes = static_cast<std::uint64_t>(PTRDIFF_MAX);

Refusal checkStructure(const OrvaImage* image, const ImageFields& fields) {
    if (!image) {
        return {ORVA_NULL_ARGUMENT, fields.image, 0, "give an image"};
    }
    if (image->structSize != sizeof(OrvaImage)) {
        return {ORVA_BAD_STRUCT_SIZE, fields.structSize, image->structSize,
                "set it to sizeof(OrvaImage) of this version's header"};
    }
    return {};
}

Refusal checkFormat(OrvaFormat format, const char* field) {
    if (format >= picture::formatCount) {
        return {ORVA_BAD_FORMAT, field, format,
                "give one of the formats that orva_format_count counts"};
    }
    return {};
}

Refusal checkImageItself(const OrvaImage* image, const ImageFields& fields) {
    const Refusal refusal = checkStructure(image, fields);
    return refusal ? refusal : checkFormat(image->format, fields.format);
}

struct Choice {
    const char* field;
    uint32_t OrvaOptions::*value;
    uint32_t last;
    const char* advice;
};

constexpr const char *matrices = "give 0 for BT.601, 1 for BT.709 or 2 for BT.2020",
                     *ranges = "give 0 for studio range or 1 for full range";
constexpr Choice choices[] = {
    {"options.srcMatrix", &OrvaOptions::srcMatrix, ORVA_MATRIX_BT2020, matrices},
    {"options.dstMatrix", &OrvaOptions::dstMatrix, ORVA_MATRIX_BT2020, matrices},
    {"options.srcRange", &OrvaOptions::srcRange, ORVA_RANGE_FULL, ranges},
    {"options.dstRange", &OrvaOptions::dstRange, ORVA_RANGE_FULL, ranges},
    {"options.chroma", &OrvaOptions::chroma, ORVA_CHROMA_NEAREST,
     "give 0 for cosited or 1 for nearest"},
    {"options.streaming", &OrvaOptions::streaming, ORVA_STREAMING_ALWAYS,
     "give 0 for automatic, 1 for never or 2 for always"},
};

Refusal checkOptions(const OrvaOptions& options) {
    if (options.structSize != sizeof(OrvaOptions)) {
        return {ORVA_BAD_STRUCT_SIZE, "options.structSize", options.structSize,
                "set it to sizeof(OrvaOptions) of this version's header"};
    }
    if (options.alpha < 0 || options.alpha > 255) {
        return {ORVA_BAD_OPTION, "options.alpha", options.alpha, "give an alpha from 0 to 255"};
    }
    for (const Choice& choice : choices) {
        if (const uint32_t value = options.*choice.value; value > choice.last) {
            return {ORVA_BAD_OPTION, choice.field, value, choice.advice};
        }
    }
    return {};
}

Refusal checkPlane(const OrvaPlane& plane, std::uint64_t row, std::uint32_t height,
                   const PlaneFields& fields, const std::byte*& end) {
    if (!plane.data) {
        return {ORVA_NULL_PLANE, fields.data, 0, "give the plane that the format has"};
    }
    const std::uint64_t pitch = magnitude(plane.pitch), size = plane.size;
    if (pitch < row) {
        return {ORVA_PITCH_BELOW_ROW, fields.pitch, plane.pitch,
                "make the pitch at least as long as a row"};
    }
    // A single row may have any longer pitch.
    std::uint64_t bytes = row;
    const bool tooLarge = height > 1 && (__builtin_mul_overflow(pitch, height - 1, &bytes) ||
                                         __builtin_add_overflow(bytes, row, &bytes));
    if (tooLarge || size < bytes) {
        return {ORVA_SHORT_PLANE, fields.size, static_cast<std::int64_t>(size),
                "give pitch * (height - 1) + row bytes at least"};
    }
    if (bytes > mostBytes) {
        return {ORVA_BAD_SIZE, fields.size, static_cast<std::int64_t>(size),
                "give an image of fewer rows: these span more than half of the address space"};
    }
    end = static_cast<const std::byte*>(plane.data) + bytes;
    return {};
}

// The planes of an image that has pixels.
Refusal checkPlanes(const OrvaImage& image, const ImageFields& fields, Extents& extents) {
    const OrvaFormatInfo& info = picture::formatTable[image.format];
    const auto planes = planesOf(image);
    for (std::uint8_t i = 0; i < planeCount; ++i) {
        if (info.planes[i].unitBytes == 0) {
            continue;
        }
        const auto row = bytesOfUnits<std::uint64_t>(info.planes[i], image.width);
        if (row > mostBytes) {
            return {ORVA_BAD_SIZE, fields.width, image.width,
                    "make the image narrower: a row is longer than half of the address space"};
        }
        const std::byte* end = nullptr;
        if (const Refusal refusal =
                checkPlane(*planes[i], row, image.height, fields.planes[i], end)) {
            return refusal;
        }
        extents.list[extents.count++] = {static_cast<const std::byte*>(planes[i]->data), end,
                                         planes[i]->pitch, info.planes[i], i};
    }
    return {};
}

bool overlap(const Extent& a, const Extent& b) {
    const std::less<> before;
    return before(a.begin, b.end) && before(b.begin, a.end);
}

// Every row of the one is the same row of the other, pixel for pixel.
bool inPlace(const Extent& a, const Extent& b, std::uint32_t height) {
    return a.plane == b.plane && a.begin == b.begin && a.end == b.end &&
           (a.pitch == b.pitch || height == 1) && a.info.unitBytes == b.info.unitBytes &&
           a.info.unitPixels == b.info.unitPixels;
}

Refusal refuseOverlap(const Extent& written, const Extent& other) {
    return {ORVA_OVERLAP, destinationFields.planes[written.plane].data,
            static_cast<std::intptr_t>(reinterpret_cast<std::uintptr_t>(written.begin) -
                                       reinterpret_cast<std::uintptr_t>(other.begin)),
            "it begins that many bytes behind a plane that it overlaps, row gaps included: give it "
            "memory of its own, or the very rows of the source's plane if both have the same "
            "units"};
}

Refusal checkOverlap(const Extents& source, const Extents& destination, std::uint32_t height) {
    for (std::size_t i = 0; i < destination.count; ++i) {
        const Extent& written = destination.list[i];
        for (std::size_t j = 0; j < source.count; ++j) {
            if (overlap(written, source.list[j]) && !inPlace(written, source.list[j], height)) {
                return refuseOverlap(written, source.list[j]);
            }
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (overlap(written, destination.list[j])) {
                return refuseOverlap(written, destination.list[j]);
            }
        }
    }
    return {};
}

}  // namespace

Refusal validateConversion(const OrvaImage* source, const OrvaImage* destination,
                           const OrvaOptions& options, uint32_t firstRow, const OrvaError* error) {
    if (const Refusal refusal = checkError(error)) {
        return refusal;
    }
    if (const Refusal refusal = checkImageItself(source, sourceFields)) {
        return refusal;
    }
    if (const Refusal refusal = checkImageItself(destination, destinationFields)) {
        return refusal;
    }
    if (destination->format == ORVA_FORMAT_A8C) {
        return {ORVA_NO_SUCH_CONVERSION, destinationFields.format, ORVA_FORMAT_A8C,
                "it has no planes, so it is a source only"};
    }
    if (!orva_can_convert(source->format, destination->format)) {
        return {ORVA_NO_SUCH_CONVERSION, destinationFields.format, destination->format,
                "colour is made of colour, and alpha alone of a format that has alpha"};
    }
    if (const Refusal refusal = checkOptions(options)) {
        return refusal;
    }
    if (source->width != destination->width) {
        return {ORVA_SIZE_MISMATCH, destinationFields.width, destination->width,
                "give both images the same width: nothing is scaled"};
    }
    if (source->height != destination->height) {
        return {ORVA_SIZE_MISMATCH, destinationFields.height, destination->height,
                "give both images the same height: nothing is scaled"};
    }
    if (firstRow > source->height) {
        return {ORVA_BAD_ROWS, "rows.first", firstRow, "begin at a row that the images have"};
    }
    if (source->width == 0 || source->height == 0) {
        return {};
    }
    Extents sourceExtents, destinationExtents;
    if (const Refusal refusal = checkPlanes(*source, sourceFields, sourceExtents)) {
        return refusal;
    }
    if (const Refusal refusal = checkPlanes(*destination, destinationFields, destinationExtents)) {
        return refusal;
    }
    return checkOverlap(sourceExtents, destinationExtents, source->height);
}

Refusal validateFrame(const OrvaImage* image, OrvaFormat format, uint64_t frameBytes,
                      const void* data, size_t size, const OrvaError* error) {
    for (const Refusal& refusal :
         {checkError(error), checkStructure(image, imageFields), checkFormat(format, "format")}) {
        if (refusal) {
            return refusal;
        }
    }
    if (format == ORVA_FORMAT_A8C) {
        return {ORVA_BAD_FORMAT, "format", format, "it has no planes, so no frame holds it"};
    }
    if (!data && frameBytes > 0) {
        return {ORVA_NULL_ARGUMENT, "data", 0, "give the frame's memory"};
    }
    if (size < frameBytes || frameBytes == UINT64_MAX) {
        return {ORVA_SHORT_PLANE, "size", static_cast<int64_t>(size),
                "give as many bytes as orva_frame_bytes says"};
    }
    return {};
}

Refusal validateCrop(const OrvaImage* image, uint32_t x, uint32_t y, uint32_t width,
                     uint32_t height, const OrvaError* error) {
    if (const Refusal refusal = checkError(error)) {
        return refusal;
    }
    if (const Refusal refusal = checkImageItself(image, imageFields)) {
        return refusal;
    }
    for (const PlaneInfo& plane : picture::formatTable[image->format].planes) {
        if (plane.unitBytes > 0 && x % plane.unitPixels != 0) {
            return {ORVA_BAD_CROP, "x", x,
                    "begin at an even pixel of 4:2:2, at a multiple of 6 in V210"};
        }
    }
    const auto outside = [](const char* field, uint32_t value) {
        return Refusal{ORVA_BAD_CROP, field, value, "take pixels that the image has"};
    };
    if (x > image->width) {
        return outside("x", x);
    }
    if (width > image->width - x) {
        return outside("width", width);
    }
    if (y > image->height) {
        return outside("y", y);
    }
    if (height > image->height - y) {
        return outside("height", height);
    }
    if (image->width == 0 || image->height == 0) {
        return {};
    }
    Extents extents;
    return checkPlanes(*image, imageFields, extents);
}

}  // namespace orva
