// The only place that refuses.
#include "validate.hpp"

#include <array>
#include <functional>

namespace orva {
namespace {

struct PlaneFields {
    std::string_view plane;
    std::string_view pitch;
};

struct ImageFields {
    std::string_view format;
    std::string_view width;
    std::string_view height;
    std::array<PlaneFields, planeCount> planes;
};

constexpr ImageFields sourceFields = {"source.format",
                                      "source.width",
                                      "source.height",
                                      {{{"source.main", "source.main.pitch"},
                                        {"source.chroma", "source.chroma.pitch"},
                                        {"source.cr", "source.cr.pitch"},
                                        {"source.alpha", "source.alpha.pitch"}}}};
constexpr ImageFields destinationFields = {"destination.format",
                                           "destination.width",
                                           "destination.height",
                                           {{{"destination.main", "destination.main.pitch"},
                                             {"destination.chroma", "destination.chroma.pitch"},
                                             {"destination.cr", "destination.cr.pitch"},
                                             {"destination.alpha", "destination.alpha.pitch"}}}};

// The part of a plane that its rows span, gaps between them included.
struct Extent {
    const std::byte* begin = nullptr;
    const std::byte* end = nullptr;
    std::ptrdiff_t pitch = 0;
    PlaneInfo info;
};

using Extents = std::array<Extent, planeCount>;

Result fail(ErrorCode code, std::string_view field, std::int64_t value, std::string_view advice) {
    return {code, field, value, advice};
}

std::uint64_t magnitude(std::ptrdiff_t pitch) {
    return pitch < 0 ? ~static_cast<std::uint64_t>(pitch) + 1 : static_cast<std::uint64_t>(pitch);
}

Result checkFormat(Format format, const ImageFields& fields) {
    if (formatInfo(format).format != format) {
        return fail(ErrorCode::badFormat, fields.format, static_cast<int>(format),
                    "give one of the formats that formats() lists");
    }
    return {};
}

template <class Choice>
Result checkChoice(std::string_view field, Choice choice, Choice last, std::string_view advice) {
    if (choice > last) {
        return fail(ErrorCode::badOption, field, static_cast<int>(choice), advice);
    }
    return {};
}

Result checkOptions(const Options& options) {
    if (options.alpha < 0 || options.alpha > 255) {
        return fail(ErrorCode::badOption, "options.alpha", options.alpha,
                    "give an alpha from 0 to 255");
    }
    constexpr std::string_view matrices = "give Matrix::bt601, bt709 or bt2020",
                               ranges = "give Range::studio or full";
    for (const Result& result :
         {checkChoice("options.srcMatrix", options.srcMatrix, Matrix::bt2020, matrices),
          checkChoice("options.dstMatrix", options.dstMatrix, Matrix::bt2020, matrices),
          checkChoice("options.srcRange", options.srcRange, Range::full, ranges),
          checkChoice("options.dstRange", options.dstRange, Range::full, ranges),
          checkChoice("options.chroma", options.chroma, Chroma::nearest,
                      "give Chroma::cosited or nearest"),
          checkChoice("options.streaming", options.streaming, Streaming::always,
                      "give Streaming::automatic, never or always")}) {
        if (!result) {
            return result;
        }
    }
    return {};
}

Result checkPlane(const ConstPlane& plane, std::uint64_t row, std::uint32_t height,
                  const PlaneFields& fields, Extent& extent) {
    if (!plane.bytes.data()) {
        return fail(ErrorCode::nullPlane, fields.plane, 0, "give the plane that the format has");
    }
    const std::uint64_t pitch = magnitude(plane.pitch), size = plane.bytes.size();
    if (pitch < row) {
        return fail(ErrorCode::pitchBelowRow, fields.pitch, plane.pitch,
                    "make the pitch at least as long as a row");
    }
    if (size < row || (height > 1 && (size - row) / (height - 1) < pitch)) {
        return fail(ErrorCode::shortPlane, fields.plane, static_cast<std::int64_t>(size),
                    "give pitch * (height - 1) + row bytes at least");
    }
    extent.begin = plane.bytes.data();
    extent.end = extent.begin + pitch * (height - 1) + row;
    extent.pitch = plane.pitch;
    return {};
}

Result checkImage(const ConstImageView& image, const ImageFields& fields, Extents& extents) {
    const FormatInfo& info = formatInfo(image.format);
    for (std::uint8_t i = 0; i < planeCount; ++i) {
        if (info.planes[i].unitBytes == 0) {
            continue;
        }
        const auto index = static_cast<PlaneIndex>(i);
        extents[i].info = info.planes[i];
        const Result result =
            checkPlane(planeOf(image, index), rowBytes(image.format, index, image.width),
                       image.height, fields.planes[i], extents[i]);
        if (!result) {
            return result;
        }
    }
    return {};
}

// Every row of the one is the same row of the other, pixel for pixel.
bool inPlace(const Extent& a, const Extent& b, std::uint32_t height) {
    return a.begin == b.begin && a.end == b.end && (a.pitch == b.pitch || height == 1) &&
           a.info.unitBytes == b.info.unitBytes && a.info.unitPixels == b.info.unitPixels;
}

Result checkOverlap(const Extents& source, const Extents& destination, std::uint32_t height) {
    const auto overlap = [](const Extent& a, const Extent& b) {
        const std::less<> before;
        return before(a.begin, b.end) && before(b.begin, a.end);
    };
    for (std::size_t i = 0; i < planeCount; ++i) {
        for (std::size_t j = 0; j < planeCount; ++j) {
            const bool withSource = overlap(destination[i], source[j]) &&
                                    !(i == j && inPlace(destination[i], source[j], height));
            if (withSource || (j < i && overlap(destination[i], destination[j]))) {
                const Extent& other = withSource ? source[j] : destination[j];
                return fail(ErrorCode::overlap, destinationFields.planes[i].plane,
                            static_cast<std::int64_t>(
                                reinterpret_cast<std::uintptr_t>(destination[i].begin) -
                                reinterpret_cast<std::uintptr_t>(other.begin)),
                            "it begins that many bytes behind a plane that it overlaps, row gaps "
                            "included: give it memory of its own, or the very rows of the "
                            "source's plane if both have the same units");
            }
        }
    }
    return {};
}

}  // namespace

Result validate(const ConstImageView& source, const ConstImageView& destination,
                const Options& options, const RowRange& rows) noexcept {
    if (const Result result = checkFormat(source.format, sourceFields); !result) {
        return result;
    }
    if (const Result result = checkFormat(destination.format, destinationFields); !result) {
        return result;
    }
    if (destination.format == Format::A8C) {
        return fail(ErrorCode::noSuchConversion, destinationFields.format,
                    static_cast<int>(Format::A8C), "it has no planes, so it is a source only");
    }
    if (!canConvert(source.format, destination.format)) {
        return fail(ErrorCode::noSuchConversion, destinationFields.format,
                    static_cast<int>(destination.format),
                    "colour is made of colour, and alpha alone of a format that has alpha");
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
    return checkOverlap(sourceExtents, destinationExtents, source.height);
}

}  // namespace orva
