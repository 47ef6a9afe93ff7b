// The conversion as its caller sees it: checks, then the engine.
#include "checked/validate.hpp"
#include "frame/wide_registers.hpp"
#include "picture/active_kernels.hpp"
#include "picture/formats.hpp"
#include "picture/rows.hpp"
#include "picture/units.hpp"

#include <algorithm>

namespace orva {
namespace {

// From this many bytes read and written on, it pays to write past the cache: less stays in the
// caches until it is read again. It is a little below an alpha plane of 1920x1080.
constexpr std::uint64_t streamedBytes = 2'000'000;

// The planes from a row on.
template <class Byte> picture::ImageRows<Byte> rowsOf(const OrvaImage& image, uint32_t firstRow) {
    const OrvaFormatInfo& info = picture::formatTable[image.format];
    const auto planes = planesOf(image);
    const bool alphaAlone = info.model == ORVA_MODEL_ALPHA;
    picture::ImageRows<Byte> rows;
    for (size_t i = 0; i < planeCount; ++i) {
        if (info.planes[i].unitBytes == 0) {
            continue;
        }
        // A single row may have a pitch that no address can move by.
        const ptrdiff_t pitch = image.height > 1 ? planes[i]->pitch : 0;
        const ptrdiff_t row =
            pitch < 0 ? ptrdiff_t(firstRow) - ptrdiff_t(image.height - 1) : ptrdiff_t(firstRow);
        rows.planes[alphaAlone ? size_t{alphaPlane} : i] = {
            static_cast<Byte*>(planes[i]->data) + row * pitch, pitch};
    }
    return rows;
}

std::uint64_t bytesOf(const OrvaImage& image) {
    std::uint64_t row = 0;
    for (const PlaneInfo& plane : picture::formatTable[image.format].planes) {
        row += bytesOfUnits<std::uint64_t>(plane, image.width);
    }
    return row * image.height;
}

picture::StreamingKinds streamingKinds(Streaming wish, const OrvaImage& source,
                                       const OrvaImage& destination) {
    switch (wish) {
    case Streaming::never:
        return {false, false};
    case Streaming::always:
        return {true, true};
    default:
        const std::uint64_t read = bytesOf(source), written = bytesOf(destination);
        const bool large = read + written >= streamedBytes;
        return {large, large && written >= read && streamingPaysWhereComputed()};
    }
}

Options optionsOf(const OrvaOptions& options) {
    return {Matrix{options.srcMatrix},   Matrix{options.dstMatrix}, Range{options.srcRange},
            Range{options.dstRange},     Chroma{options.chroma},    options.alpha,
            Streaming{options.streaming}};
}

// Of images and options that have passed the checks.
void convertChecked(const OrvaImage& source, const OrvaImage& destination, const Options& options,
                    uint32_t firstRow, uint32_t rowCount) {
    const picture::Kernels& kernels = *picture::activeKernels;
    const picture::Plan plan =
        picture::makePlan(Format{source.format}, Format{destination.format}, options, kernels);
    picture::convertRows(plan, kernels,
                         {rowsOf<const uint8_t>(source, firstRow),
                          rowsOf<uint8_t>(destination, firstRow), source.width, rowCount},
                         streamingKinds(options.streaming, source, destination));
    if (kernels.useWideRegisters) {
        leaveWideRegisters();
    }
}

constexpr OrvaOptions defaultOptions = ORVA_OPTIONS_INIT;

}  // namespace
}  // namespace orva

using namespace orva;

int32_t orva_options_init(OrvaOptions* options, uint32_t structSize) {
    if (!options) {
        return ORVA_NULL_ARGUMENT;
    }
    if (structSize != sizeof(OrvaOptions)) {
        return ORVA_BAD_STRUCT_SIZE;
    }
    *options = defaultOptions;
    return ORVA_DONE;
}

int32_t orva_convert_rows(const OrvaImage* source, const OrvaImage* destination,
                          const OrvaOptions* options, uint32_t firstRow, uint32_t rowCount,
                          OrvaError* error) {
    const OrvaOptions& choices = options ? *options : defaultOptions;
    if (const Refusal refusal = validateConversion(source, destination, choices, firstRow, error)) {
        return tell(refusal, error);
    }
    const uint32_t rows = std::min(rowCount, source->height - firstRow);
    if (source->width > 0 && rows > 0) {
        convertChecked(*source, *destination, optionsOf(choices), firstRow, rows);
    }
    return ORVA_DONE;
}

int32_t orva_convert(const OrvaImage* source, const OrvaImage* destination,
                     const OrvaOptions* options, OrvaError* error) {
    return orva_convert_rows(source, destination, options, 0, UINT32_MAX, error);
}
