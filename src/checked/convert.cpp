// The conversion as its caller sees it: checks, then a colour step and an alpha step.
//
// Exports that only join the two steps are never called: apart, each step can go its own way.
#include "paths.hpp"
#include "validate.hpp"

#include <xmmintrin.h>

#include <algorithm>

namespace orva {
namespace {

#if defined(__GNUC__)
__attribute__((target("sse")))
#endif
void storeFence() {
    _mm_sfence();
}

// All of an image's rows.
template <class Byte> Side<Byte> sideOf(const BasicImageView<Byte>& image) {
    Side<Byte> side;
    side.format = image.format;
    const FormatInfo& info = formatInfo(image.format);
    if (info.bytesPerPixel > 0) {
        side.main = {firstRow(image.main, image.height), image.main.pitch};
    }
    if (info.alphaPlane) {
        side.alpha = {firstRow(image.alpha, image.height), image.alpha.pitch};
    }
    if (info.chromaPlane) {
        side.chromaDistance = image.main.pitch * static_cast<std::ptrdiff_t>(image.height);
    }
    return side;
}

// The alpha plane of an image as an image; the only plane of A8P, none of a format without alpha.
template <class Byte> Side<Byte> alphaOf(const Side<Byte>& side) {
    const FormatInfo& info = formatInfo(side.format);
    Side<Byte> alpha;
    alpha.format = info.alphaPlane || side.format == Format::A8P ? Format::A8P : Format::A8C;
    alpha.main = info.alphaPlane ? side.alpha : side.main;
    return alpha;
}

template <class Byte> Side<Byte> colourOf(const Side<Byte>& side) {
    Side<Byte> colour = side;
    colour.format = formatInfo(side.format).colour;
    colour.alpha = {};
    return colour;
}

template <class FromSource, class FromDestination>
Region partOf(const Region& image, FromSource fromSource, FromDestination fromDestination) {
    return {fromSource(image.source), fromDestination(image.destination), image.width,
            image.height};
}

OrvaConversionDescriptor optionFields(const Options& options, Format destination) {
    const auto code = [](Matrix matrix) { return matrix == Matrix::bt601 ? 1 : 0; };
    OrvaConversionDescriptor fields = {};
    fields.srcColorSpace = code(options.srcMatrix);
    // To BGR, the C interface takes the source's matrix from the destination's field.
    const bool toBgr =
        destination == Format::BGR32I || formatInfo(destination).colour == Format::BGR24I;
    fields.dstColorSpace = code(toBgr ? options.srcMatrix : options.dstMatrix);
    fields.alphaValue = options.alpha;
    fields.fullRange = options.range == Range::full;
    fields.streamingStores = options.streaming;
    fields.clampStudio = options.clampStudio;
    return fields;
}

Result describeWrongLayout(const Options& options) {
    return {ErrorCode::wrongLayout, "options.dstMatrix", static_cast<int>(options.dstMatrix),
            "give both sides the same matrix, or convert the matrix from UYVY16I to UYVY16I first"};
}

Result describeMisaligned(std::uintptr_t alignment, const Rows<std::byte>& rows) {
    const auto address = reinterpret_cast<std::uintptr_t>(rows.first);
    const bool data = address % alignment != 0;
    return {ErrorCode::misaligned, data ? "destination.main" : "destination.main.pitch",
            data ? static_cast<std::int64_t>(address % alignment) : rows.pitch,
            alignment == 8   ? "begin every row at a multiple of 8 bytes"
            : alignment == 4 ? "begin every row at a multiple of 4 bytes"
                             : "begin every row at an even address"};
}

}  // namespace

Result convert(const ConstImageView& source, const ImageView& destination, const Options& options,
               RowRange rows) noexcept {
    if (const Result result = validate(source, destination, options, rows); !result) {
        return result;
    }
    const std::uint32_t height = std::min(rows.count, source.height - rows.first);
    if (source.width == 0 || height == 0) {
        return {};
    }
    const Region image = {sideOf(source), sideOf(destination), source.width, source.height};
    const OrvaConversionDescriptor fields = optionFields(options, destination.format);

    // Exports from and to BGR32I handle colour and alpha at once.
    const bool joint = source.format == Format::BGR32I || destination.format == Format::BGR32I;
    const Region colour =
        joint ? image : partOf(image, colourOf<const std::byte>, colourOf<std::byte>);
    const Region alpha = partOf(image, alphaOf<const std::byte>, alphaOf<std::byte>);
    const bool colourWanted = joint || colour.destination.format != Format::A8P;
    const bool alphaWanted = !joint && alpha.destination.format == Format::A8P;

    ColourStep step;
    if (colourWanted) {
        step = colourStep(colour.source.format, colour.destination.format,
                          options.srcMatrix != options.dstMatrix);
        if (!step.run) {
            return describeWrongLayout(options);
        }
        if (!image.destination.main.aligned(step.destinationAlignment, image.height)) {
            return describeMisaligned(step.destinationAlignment, image.destination.main);
        }
        step.run(colour.rows(rows.first, height), fields);
    }
    if (alphaWanted) {
        const Path run = alpha.source.format == Format::A8P ? copyAlpha : fillAlpha;
        run(alpha.rows(rows.first, height), fields);
    }
    storeFence();
    return {};
}

}  // namespace orva
