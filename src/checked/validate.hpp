// The checks of images and options: the only place that refuses them.
#pragma once

#include "checked/refusal.hpp"

#include <array>

namespace orva {

// An image's planes in the order of their indices.
template <class Image> auto planesOf(Image& image) {
    return std::array{&image.main, &image.chroma, &image.cr, &image.alpha};
}

inline uint64_t magnitude(ptrdiff_t pitch) {
    return pitch < 0 ? ~static_cast<uint64_t>(pitch) + 1 : static_cast<uint64_t>(pitch);
}

// Success means that every row of every plane lies within its bytes and in no row of another plane
// that is written, unless both are the same.
Refusal validateConversion(const OrvaImage* source, const OrvaImage* destination,
                           const OrvaOptions& options, uint32_t firstRow, const OrvaError* error);

// Success means that the memory holds a frame of frameBytes, which is UINT64_MAX if none does.
Refusal validateFrame(const OrvaImage* image, OrvaFormat format, uint64_t frameBytes,
                      const void* data, size_t size, const OrvaError* error);

// Success means that every row of every plane lies within its bytes, and that the crop is whole
// units of the image.
Refusal validateCrop(const OrvaImage* image, uint32_t x, uint32_t y, uint32_t width,
                     uint32_t height, const OrvaError* error);

}  // namespace orva
