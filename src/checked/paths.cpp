// How each kind of conversion is run so that its picture is right.
//
// The fast kernels of a family are asked for where the rows are aligned as they need; otherwise its
// general kernels are, where they give the same picture. Where neither does, rows are taken apart
// or another export moves the same bytes.
#include "paths.hpp"

#include "call.hpp"

#include <array>

namespace orva {
namespace {

constexpr std::uintptr_t vectorBytes = 16;

Kernel fastIf(bool condition) { return condition ? Kernel::fast : Kernel::general; }

Export exportOf(const Region& region) {
    return exportFor(region.source.format, region.destination.format);
}

bool sourceAligned(const Region& region) {
    return region.source.main.aligned(vectorBytes, region.height);
}

bool destinationAligned(const Region& region) {
    return region.destination.main.aligned(vectorBytes, region.height);
}

// Whether source and destination rows have the same address modulo 16.
bool congruent(const Region& region) {
    const auto& source = region.source.main;
    const auto& destination = region.destination.main;
    const auto difference = reinterpret_cast<std::uintptr_t>(source.first) -
                            reinterpret_cast<std::uintptr_t>(destination.first);
    const auto drift =
        region.height > 1 ? static_cast<std::uintptr_t>(source.pitch - destination.pitch) : 0;
    return ((difference | drift) % vectorBytes) == 0;
}

// ---- Bytes that only move ----

// Rows of bytes, from any address to any other.
void copyBytes(const Region& bytes, OrvaConversionDescriptor options) {
    // Only the streaming form of the general kernel loads the source from any address.
    if (!congruent(bytes)) {
        options.streamingStores = 1;
    }
    const bool fast = sourceAligned(bytes) && destinationAligned(bytes) && bytes.width % 32 == 0;
    callExport(exportFor(Format::A8P, Format::A8P), bytes, options, fastIf(fast));
}

// One format to itself. Its own export would only move the bytes, but not to every address.
void copyPixels(const Region& region, const OrvaConversionDescriptor& options) {
    Region bytes = region;
    bytes.source.format = bytes.destination.format = Format::A8P;
    bytes.width *= formatInfo(region.source.format).bytesPerPixel;
    copyBytes(bytes, options);
}

// The four bytes of each pixel pair in another order, for what no kernel does: each of the four is
// copied as an image of its own, one byte wide and with a row for each pair.
void reorderBytes(const Region& region, const OrvaConversionDescriptor& options,
                  const std::array<std::uint8_t, 4>& from) {
    for (std::uint32_t row = 0; row < region.height; ++row) {
        for (std::size_t to = 0; to < from.size(); ++to) {
            Region column;
            column.source.format = column.destination.format = Format::A8P;
            column.source.main = {region.source.main.row(row) + from[to], 4};
            column.destination.main = {region.destination.main.row(row) + to, 4};
            column.width = 1;
            column.height = region.width / 2;
            copyBytes(column, options);
        }
    }
}

// UYVY16I to YUYV16I and back: both kernels load the source aligned.
void swapBytes(const Region& region, const OrvaConversionDescriptor& options) {
    const bool reachable = congruent(region) && region.destination.main.aligned(4, region.height);
    if (!reachable) {
        reorderBytes(region, options, {1, 0, 3, 2});
        return;
    }
    callExport(exportOf(region), region, options,
               fastIf(destinationAligned(region) && region.width % 16 == 0));
}

// UVYY16I to UYVY16I and back: only the fast kernels reorder, the general ones copy.
void shuffle(const Region& region, const OrvaConversionDescriptor& options) {
    const std::uint32_t blocks = destinationAligned(region) ? region.width / 16 * 16 : 0;
    if (blocks > 0) {
        callExport(exportOf(region), region.columns(0, blocks), options, Kernel::fast);
    }
    if (blocks < region.width) {
        reorderBytes(region.columns(blocks, region.width - blocks), options, {0, 2, 1, 3});
    }
}

// BGR formats and the alpha that they hold. The fast kernels take it that all planes are aligned.
void repack(const Region& region, const OrvaConversionDescriptor& options) {
    const bool fast = region.width % 16 == 0 && sourceAligned(region) &&
                      destinationAligned(region) &&
                      region.source.alpha.aligned(vectorBytes, region.height) &&
                      region.destination.alpha.aligned(vectorBytes, region.height);
    callExport(exportOf(region), region, options, fastIf(fast));
}

// ---- Kernels that take any source ----

void onWholeBlocksOf16(const Region& region, const OrvaConversionDescriptor& options) {
    callExport(exportOf(region), region, options,
               fastIf(destinationAligned(region) && region.width % 16 == 0));
}

void fromBgr24(const Region& region, const OrvaConversionDescriptor& options) {
    // The fast streaming kernel to UVYY16I writes no chroma.
    const bool reduced =
        region.destination.format == Format::UVYY16I && options.streamingStores != 0;
    callExport(exportOf(region), region, options,
               fastIf(destinationAligned(region) && region.width % 8 == 0 && !reduced));
}

void fromBgr32(const Region& region, const OrvaConversionDescriptor& options) {
    callExport(
        exportOf(region), region, options,
        fastIf(sourceAligned(region) && destinationAligned(region) && region.width % 8 == 0));
}

// ---- YCbCr to BGR32I ----
//
// The general kernels convert single pairs before a row's first 16-byte boundary, behind its last
// block of 8 pixels, and throughout rows of less than 16. A constant alpha comes out wrong in such
// pairs, so the export for a source with an alpha plane takes over there and reads it from memory.
// That one does not move its alpha pointer past pairs, so pairs and blocks are kept apart.

constexpr std::uint32_t generalRow = 16;

// Rows that are aligned or all of pairs.
void pairsOrBlocks(const Region& region, Export function, const OrvaConversionDescriptor& options) {
    const bool packed = !formatInfo(region.source.format).chromaPlane;
    const bool fast = destinationAligned(region) && region.width % 16 == 0 &&
                      (!packed || region.source.main.aligned(vectorBytes, 1));
    const std::uint32_t alphaAdvance = region.width < generalRow ? 0 : region.width / 8 * 8;
    callExport(function, region, options, fastIf(fast), alphaAdvance);
}

void withAlphaPlane(const Region& region, Export function,
                    const OrvaConversionDescriptor& options) {
    // Rows that begin differently towards a 16-byte boundary need calls of their own.
    const bool alike = region.destination.main.pitch % std::ptrdiff_t{vectorBytes} == 0;
    const std::uint32_t step = alike ? region.height : 1;
    for (std::uint32_t row = 0; row < region.height; row += step) {
        const Region part = region.rows(row, step);
        const std::uint32_t head = destinationAligned(part) ? 0 : 2;
        if (head > 0) {
            pairsOrBlocks(part.columns(0, head), function, options);
        }
        if (head < part.width) {
            pairsOrBlocks(part.columns(head, part.width - head), function, options);
        }
    }
}

void withConstantAlpha(const Region& region, const OrvaConversionDescriptor& options) {
    const bool onlyBlocks =
        destinationAligned(region) && region.width % 8 == 0 && region.width >= generalRow;
    if (onlyBlocks || options.alphaValue == 0) {
        const bool fast = onlyBlocks && region.source.main.aligned(vectorBytes, 1);
        callExport(exportOf(region), region, options, fastIf(fast));
        return;
    }
    std::array<std::byte, 4096> alphaRow;
    alphaRow.fill(static_cast<std::byte>(options.alphaValue));
    constexpr auto stripWidth = static_cast<std::uint32_t>(alphaRow.size());

    const Format source = region.source.format;
    const Export function = exportFor(source == Format::UYVY16I   ? Format::UYVY16IA8P
                                      : source == Format::YUYV16I ? Format::YUYV16IA8P
                                                                  : Format::Y8PUV8IA8P,
                                      Format::BGR32I);
    for (std::uint32_t x = 0; x < region.width; x += stripWidth) {
        Region strip = region.columns(x, std::min(stripWidth, region.width - x));
        strip.source.alpha = {alphaRow.data(), 0};
        withAlphaPlane(strip, function, options);
    }
}

void toBgr32(const Region& region, const OrvaConversionDescriptor& options) {
    if (formatInfo(region.source.format).alphaPlane) {
        withAlphaPlane(region, exportOf(region), options);
    } else {
        withConstantAlpha(region, options);
    }
}

bool isBgr(Format format) { return format == Format::BGR32I || format == Format::BGR24I; }

}  // namespace

void copyAlpha(const Region& region, const OrvaConversionDescriptor& options) {
    copyBytes(region, options);
}

void fillAlpha(const Region& region, const OrvaConversionDescriptor& options) {
    callExport(exportFor(Format::A8C, Format::A8P), region, options,
               fastIf(destinationAligned(region) && region.width % 32 == 0));
}

ColourStep colourStep(Format source, Format destination, bool matricesDiffer) {
    const Format from = formatInfo(source).colour;
    const Format to = formatInfo(destination).colour;
    if (isBgr(from)) {
        if (isBgr(to) || to == Format::A8P) {
            return {source == destination ? copyPixels : repack, 1};
        }
        return {from == Format::BGR24I ? fromBgr24 : fromBgr32, 1};
    }
    if (to == Format::BGR32I) {
        return {toBgr32, 8};
    }
    if (to == Format::BGR24I) {
        return {onWholeBlocksOf16, 2};
    }
    if (matricesDiffer) {
        const auto named = [](Format format) {
            return format == Format::UYVY16I || format == Format::YUYV16I;
        };
        return named(from) && named(to) ? ColourStep{onWholeBlocksOf16, 4} : ColourStep{};
    }
    if (from == to) {
        return {copyPixels, 1};
    }
    if (to == Format::Y8PUV8I) {
        return {onWholeBlocksOf16, 1};
    }
    const bool grouped = from == Format::UVYY16I || to == Format::UVYY16I;
    return {grouped ? shuffle : swapBytes, 1};
}

}  // namespace orva
