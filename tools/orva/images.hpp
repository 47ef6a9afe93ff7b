// Images of a wanted size: made and converted as the library does, or the command fails.
#pragma once

#include <orva/convert.hpp>

#include <cstddef>
#include <cstdint>
#include <string>

namespace orva::tool {

struct FrameSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    bool operator==(const FrameSize&) const = default;
};

std::string sizeText(FrameSize size);
std::string frameText(Format format, FrameSize size);

[[noreturn]] void failTooLarge(Format format, FrameSize size);

// Fails if an image takes more than half of the memory that the machine has: a conversion needs
// two.
void requireMemory(Format format, FrameSize size);

Image createImage(Format format, FrameSize size);

void convertImage(const ConstImageView& source, const ImageView& destination,
                  const Options& options = {});

// Calls visit(row) with each row, plane after plane. Rows run downwards, as those of Image do.
template <class Byte, class Visit> void forEachRow(const BasicImageView<Byte>& image, Visit visit) {
    for (const PlaneIndex index : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        const auto bytes = static_cast<std::size_t>(rowBytes(image.format, index, image.width));
        const BasicPlane<Byte>& plane = planeOf(image, index);
        for (std::uint32_t y = 0; bytes > 0 && y < image.height; ++y) {
            visit(plane.bytes.subspan(static_cast<std::size_t>(plane.pitch) * y, bytes));
        }
    }
}

}  // namespace orva::tool
