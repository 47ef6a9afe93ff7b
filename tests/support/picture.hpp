// What tests of the checked interface share: memory for images, and the picture that a call is to
// make, by the scalar model.
#pragma once

#include "reference/model.hpp"
#include "support/data.hpp"

#include <orva/convert.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace test {

// Memory from a multiple of 64 on. The address sanitizer sees accesses beyond its end.
template <class T> struct FromLineStart {
    using value_type = T;
    static constexpr std::align_val_t alignment{64};
    T* allocate(std::size_t count) {
        return static_cast<T*>(::operator new(count * sizeof(T), alignment));
    }
    void deallocate(T* memory, std::size_t) { ::operator delete(memory, alignment); }
    bool operator==(const FromLineStart&) const = default;
};
using Memory = std::vector<std::byte, FromLineStart<std::byte>>;

inline void fill(std::span<std::byte> bytes, Random& random) {
    std::ranges::copy(std::as_bytes(runs(bytes.size(), random)), bytes.begin());
}

constexpr std::size_t planeCount = 3;

// Bytes of a pixel in the main, chroma and alpha planes.
inline std::array<std::uint32_t, planeCount> bytesPerPixel(orva::Format format) {
    const orva::FormatInfo& info = orva::formatInfo(format);
    return {info.bytesPerPixel, info.chromaPlane, info.alphaPlane};
}

template <class View> const auto& planeOf(const View& view, std::size_t index) {
    return index == 0 ? view.main : index == 1 ? view.chroma : view.alpha;
}

template <class Byte>
Byte* rowOf(const orva::BasicPlane<Byte>& plane, std::uint32_t height, std::uint32_t y) {
    const auto pitch = static_cast<std::size_t>(std::abs(plane.pitch));
    return plane.bytes.data() + pitch * (plane.pitch < 0 ? height - 1 - y : y);
}

inline bool isYcbcr(orva::Format format) { return orva::formatInfo(format).pixelPairs; }

// Whether samples go from one matrix to another, so that rounding depends on how rows divide into
// blocks.
inline bool changesMatrix(orva::Format source, orva::Format destination,
                          const orva::Options& options) {
    return options.srcMatrix != options.dstMatrix && isYcbcr(source) && isYcbcr(destination);
}

inline std::string nameOf(orva::Format source, orva::Format destination) {
    return std::string(formatInfo(source).name) + "_" + std::string(formatInfo(destination).name);
}

inline void copyRows(const orva::ConstImageView& from, const orva::ImageView& to) {
    const auto bytes = bytesPerPixel(to.format);
    for (std::size_t p = 0; p < planeCount; ++p) {
        for (std::uint32_t y = 0; bytes[p] > 0 && y < to.height; ++y) {
            std::memcpy(rowOf(planeOf(to, p), to.height, y),
                        rowOf(planeOf(from, p), from.height, y),
                        std::size_t{bytes[p]} * std::min(from.width, to.width));
        }
    }
}

// The same call as a descriptor for the C interface.
inline OrvaConversionDescriptor describe(const orva::ConstImageView& source,
                                         const orva::ImageView& destination,
                                         const orva::Options& options) {
    using orva::Format;
    const auto gap = [](const auto& image, std::size_t plane) {
        return static_cast<std::int32_t>(planeOf(image, plane).pitch) -
               static_cast<std::int32_t>(bytesPerPixel(image.format)[plane] * image.width);
    };
    const auto first = [](const auto& image, std::size_t plane) {
        const auto& rows = planeOf(image, plane);
        return rows.bytes.empty() ? rows.bytes.data() : rowOf(rows, image.height, 0);
    };
    const auto code = [](orva::Matrix matrix) { return matrix == orva::Matrix::bt601 ? 1 : 0; };
    const bool toBgr = orva::formatInfo(destination.format).colour == Format::BGR24I ||
                       destination.format == Format::BGR32I;
    OrvaConversionDescriptor d = {};
    d.srcData = first(source, 0);
    d.srcHeight = source.height;
    d.srcPitch = static_cast<std::int32_t>(source.main.pitch);
    d.srcRowGap = gap(source, 0);
    d.srcColorSpace = code(options.srcMatrix);
    d.srcPlane2Data = first(source, 2);
    d.srcPlane2RowGap = gap(source, 2);
    d.dstData = first(destination, 0);
    d.dstWidth = destination.width;
    d.dstHeight = destination.height;
    d.dstPitch = static_cast<std::int32_t>(destination.main.pitch);
    d.dstRowGap = gap(destination, 0);
    d.dstColorSpace = code(toBgr ? options.srcMatrix : options.dstMatrix);
    d.dstPlane2Data = first(destination, 2);
    d.dstPlane2Pitch = static_cast<std::int32_t>(destination.alpha.pitch);
    d.dstPlane2RowGap = gap(destination, 2);
    d.alphaValue = options.alpha;
    d.fullRange = options.range == orva::Range::full;
    d.clampStudio = options.clampStudio;
    return d;
}

// Makes the picture that convert() promises for rows that it accepts; false if the model does not
// know the conversion.
inline bool makePicture(const orva::ConstImageView& source, const orva::ImageView& destination,
                        const orva::Options& options) {
    const std::string name = nameOf(source.format, destination.format);
    if (changesMatrix(source.format, destination.format, options)) {
        return reference::convert(name, describe(source, destination, options));
    }
    // On aligned images of whole blocks the model's fast kernel makes the picture.
    const std::uint32_t width = (source.width + 31) / 32 * 32;
    std::optional<orva::Image> from = orva::Image::create(source.format, width, source.height);
    orva::Image to = orva::Image::create(destination.format, width, source.height).value();
    orva::ConstImageView roomySource{source.format, width, source.height, {}, {}, {}};
    if (from) {
        copyRows(source, from->view());
        roomySource = from->view();
    }
    const bool known = reference::convert(name, describe(roomySource, to.view(), options));
    copyRows(to.view(), destination);
    return known;
}

}  // namespace test
