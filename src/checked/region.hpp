// The rows and columns of two images that one call converts.
#pragma once

#include <orva/convert.hpp>

namespace orva {

// A plane's rows from the first one to convert on.
template <class Byte> struct Rows {
    Byte* first = nullptr;
    std::ptrdiff_t pitch = 0;

    Byte* row(std::uint32_t index) const {
        return first + static_cast<std::ptrdiff_t>(index) * pitch;
    }

    // Whether each of the rows begins at a multiple of `alignment`, a power of two.
    bool aligned(std::uintptr_t alignment, std::uint32_t rows) const {
        const auto bits = reinterpret_cast<std::uintptr_t>(first) |
                          (rows > 1 ? static_cast<std::uintptr_t>(pitch) : 0);
        return bits % alignment == 0;
    }
};

// One image's part of a region. Chroma rows follow luma rows at a distance.
template <class Byte> struct Side {
    Format format = Format::A8C;
    Rows<Byte> main;
    Rows<Byte> alpha;
    std::ptrdiff_t chromaDistance = 0;

    Side columns(std::uint32_t from) const {
        Side part = *this;
        part.main.first += std::ptrdiff_t{formatInfo(format).bytesPerPixel} * from;
        part.alpha.first += alpha.first ? from : 0;
        return part;
    }
    Side rows(std::uint32_t from) const {
        Side part = *this;
        part.main.first = main.row(from);
        part.alpha.first = alpha.row(from);
        return part;
    }
};

struct Region {
    Side<const std::byte> source;
    Side<std::byte> destination;
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    Region columns(std::uint32_t from, std::uint32_t count) const {
        return {source.columns(from), destination.columns(from), count, height};
    }
    Region rows(std::uint32_t from, std::uint32_t count) const {
        return {source.rows(from), destination.rows(from), width, count};
    }
};

}  // namespace orva
