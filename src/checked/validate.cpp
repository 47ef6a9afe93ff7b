// The checks that depend on the two images and the options alone.
#include "validate.hpp"

#include <array>
#include <functional>

namespace orva {
namespace {

enum PlaneIndex : std::size_t { mainPlane, chromaPlane, alphaPlane, planeCount };

struct PlaneFields {
    std::string_view plane;
    std::string_view pitch;
};

struct ImageFields {
    std::string_view width;
    std::string_view height;
    std::array<PlaneFields, planeCount> planes;
};

constexpr ImageFields sourceFields = {"source.width",
                                      "source.height",
                                      {{{"source.main", "source.main.pitch"},
                                        {"source.chroma", "source.chroma.pitch"},
                                        {"source.alpha", "source.alpha.pitch"}}}};
constexpr ImageFields destinationFields = {"destination.width",
                                           "destination.height",
                                           {{{"destination.main", "destination.main.pitch"},
                                             {"destination.chroma", "destination.chroma.pitch"},
                                             {"destination.alpha", "destination.alpha.pitch"}}}};

// The part of a plane that its rows span, gaps between them included.
struct Extent {
    std::string_view field;
    const std::byte* begin = nullptr;
    const std::byte* end = nullptr;
};

using Extents = std::array<Extent, planeCount>;

Result fail(ErrorCode code, std::string_view field, std::int64_t value, std::string_view advice) {
    return {code, field, value, advice};
}

std::uint64_t magnitude(std::ptrdiff_t pitch) {
    return pitch < 0 ? ~static_cast<std::uint64_t>(pitch) + 1 : static_cast<std::uint64_t>(pitch);
}

Result checkOptions(const Options& options) {
    if (options.alpha < 0 || options.alpha > 255) {
        return fail(ErrorCode::badOption, "options.alpha", options.alpha,
                    "give an alpha from 0 to 255");
    }
    for (const auto& [field, matrix] : {std::pair{"options.srcMatrix", options.srcMatrix},
                                        std::pair{"options.dstMatrix", options.dstMatrix}}) {
        if (matrix != Matrix::bt601 && matrix != Matrix::bt709) {
            return fail(ErrorCode::badOption, field, static_cast<int>(matrix),
                        "give Matrix::bt601 or Matrix::bt709");
        }
    }
    if (options.range != Range::studio && options.range != Range::full) {
        return fail(ErrorCode::badOption, "options.range", static_cast<int>(options.range),
                    "give Range::studio or Range::full");
    }
    return {};
}

Result checkPlane(const ConstPlane& plane, std::uint64_t rowBytes, std::uint32_t height,
                  const PlaneFields& fields, Extent& extent) {
    if (!plane.bytes.data()) {
        return fail(ErrorCode::nullPlane, fields.plane, 0, "give the plane that the format has");
    }
    const std::uint64_t pitch = magnitude(plane.pitch);
    if (pitch > maximumPitch || rowBytes > maximumPitch) {
        return fail(ErrorCode::sizeOverflow, fields.pitch, plane.pitch,
                    "keep rows and pitches to 1 GiB");
    }
    if (pitch < rowBytes) {
        return fail(ErrorCode::pitchBelowRow, fields.pitch, plane.pitch,
                    "make the pitch at least as long as a row");
    }
    const std::uint64_t needed = pitch * (height - 1) + rowBytes;
    if (plane.bytes.size() < needed) {
        return fail(ErrorCode::shortPlane, fields.plane,
                    static_cast<std::int64_t>(plane.bytes.size()),
                    "give pitch * (height - 1) + row bytes at least");
    }
    extent = {fields.plane, plane.bytes.data(), plane.bytes.data() + needed};
    return {};
}

Result checkChromaPlacement(const ConstImageView& image, const ImageFields& fields) {
    const auto& field = fields.planes[chromaPlane];
    if (image.chroma.pitch != image.main.pitch) {
        return fail(ErrorCode::chromaPlacement, field.pitch, image.chroma.pitch,
                    "give chroma the pitch of luma");
    }
    if (magnitude(image.main.pitch) * image.height > maximumChromaDistance) {
        return fail(ErrorCode::sizeOverflow, fields.planes[mainPlane].pitch, image.main.pitch,
                    "keep semi-planar luma planes below 2 GiB");
    }
    const auto address = [&](const ConstPlane& plane) {
        return reinterpret_cast<std::uintptr_t>(firstRow(plane, image.height));
    };
    const auto distance = static_cast<std::ptrdiff_t>(address(image.chroma) - address(image.main));
    if (distance != image.main.pitch * static_cast<std::ptrdiff_t>(image.height)) {
        return fail(ErrorCode::chromaPlacement, field.plane, distance,
                    "put the first chroma row pitch * height bytes behind the first luma row");
    }
    return {};
}

Result checkImage(const ConstImageView& image, const ImageFields& fields, Extents& extents) {
    const FormatInfo& info = formatInfo(image.format);
    if (info.pixelPairs && image.width % 2 != 0) {
        return fail(ErrorCode::oddWidth, fields.width, image.width,
                    "make the width even: 4:2:2 formats hold whole pixel pairs");
    }
    const std::array<const ConstPlane*, planeCount> planes = {&image.main, &image.chroma,
                                                              &image.alpha};
    const std::array<std::uint64_t, planeCount> bytesPerPixel = {
        info.bytesPerPixel, info.chromaPlane ? 1u : 0u, info.alphaPlane ? 1u : 0u};
    for (std::size_t i = 0; i < planeCount; ++i) {
        if (bytesPerPixel[i] == 0) {
            continue;
        }
        const Result result = checkPlane(*planes[i], image.width * bytesPerPixel[i], image.height,
                                         fields.planes[i], extents[i]);
        if (!result) {
            return result;
        }
    }
    return info.chromaPlane ? checkChromaPlacement(image, fields) : Result{};
}

Result checkOverlap(const Extents& source, const Extents& destination) {
    const auto overlap = [](const Extent& a, const Extent& b) {
        const std::less<> before;
        return before(a.begin, b.end) && before(b.begin, a.end);
    };
    for (std::size_t i = 0; i < planeCount; ++i) {
        for (std::size_t j = 0; j < planeCount; ++j) {
            if (overlap(destination[i], source[j]) ||
                (j < i && overlap(destination[i], destination[j]))) {
                return fail(ErrorCode::overlap, destination[i].field, 0,
                            "give the destination plane memory of its own");
            }
        }
    }
    return {};
}

}  // namespace

Result validate(const ConstImageView& source, const ConstImageView& destination,
                const Options& options, const RowRange& rows) noexcept {
    if (!canConvert(source.format, destination.format)) {
        return fail(ErrorCode::noSuchConversion, "destination.format",
                    static_cast<int>(destination.format), "choose a pair that conversions() lists");
    }
    if (const Result result = checkOptions(options); !result) {
        return result;
    }
    if (source.width != destination.width) {
        return fail(ErrorCode::sizeMismatch, destinationFields.width, destination.width,
                    "give both images the same width: nothing is scaled");
    }
    if (source.height != destination.height) {
        return fail(ErrorCode::sizeMismatch, destinationFields.height, destination.height,
                    "give both images the same height: nothing is scaled");
    }
    if (rows.first > source.height) {
        return fail(ErrorCode::badRows, "rows.first", rows.first,
                    "begin at a row that the images have");
    }
    if (source.width == 0 || source.height == 0) {
        return {};
    }
    Extents sourceExtents, destinationExtents;
    if (const Result result = checkImage(source, sourceFields, sourceExtents); !result) {
        return result;
    }
    if (const Result result = checkImage(destination, destinationFields, destinationExtents);
        !result) {
        return result;
    }
    return checkOverlap(sourceExtents, destinationExtents);
}

}  // namespace orva
