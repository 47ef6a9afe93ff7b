// The memory of owning images.
#include "validate.hpp"

#include <algorithm>
#include <cstring>

namespace orva {
namespace {

constexpr std::size_t planeAlignment = 64;

constexpr std::uint64_t roundUp(std::uint64_t value, std::uint64_t multiple) {
    return (value + multiple - 1) / multiple * multiple;
}

}  // namespace

std::optional<Image> Image::create(Format format, std::uint32_t width,
                                   std::uint32_t height) noexcept {
    const FormatInfo& info = formatInfo(format);
    if (info.bytesPerPixel == 0 || (info.pixelPairs && width % 2 != 0)) {
        return std::nullopt;
    }
    // 192 is the least multiple of 64 that is one of 48, which the kernels for BGR24I ask for.
    const std::uint64_t pitchUnit = info.bytesPerPixel == 3 ? 3 * planeAlignment : planeAlignment;
    const std::uint64_t mainPitch = roundUp(std::uint64_t{width} * info.bytesPerPixel, pitchUnit);
    const std::uint64_t alphaPitch = info.alphaPlane ? roundUp(width, planeAlignment) : 0;
    const std::uint64_t mainSize = mainPitch * height;
    const std::uint64_t chromaSize = info.chromaPlane ? mainSize : 0;
    const std::uint64_t alphaSize = alphaPitch * height;
    // With a legal pitch, the sum of these cannot overflow.
    if (mainPitch > maximumPitch || chromaSize > maximumChromaDistance ||
        mainSize + chromaSize + alphaSize > PTRDIFF_MAX) {
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(mainSize + chromaSize + alphaSize);

    Image image;
    image.memory = ::operator new (std::max<std::size_t>(size, 1), std::align_val_t{planeAlignment},
                                   std::nothrow);
    if (!image.memory) {
        return std::nullopt;
    }
    std::memset(image.memory, 0, size);
    auto* next = static_cast<std::byte*>(image.memory);
    const auto place = [&next](std::uint64_t planeSize, std::uint64_t pitch) {
        Plane plane{{next, static_cast<std::size_t>(planeSize)},
                    static_cast<std::ptrdiff_t>(pitch)};
        next += planeSize;
        return plane;
    };
    image.planes = {format, width, height, {}, {}, {}};
    image.planes.main = place(mainSize, mainPitch);
    if (info.chromaPlane) {
        image.planes.chroma = place(chromaSize, mainPitch);
    }
    if (info.alphaPlane) {
        image.planes.alpha = place(alphaSize, alphaPitch);
    }
    return image;
}

Image::~Image() {
    if (memory) {
        ::operator delete (memory, std::align_val_t{planeAlignment});
    }
}

}  // namespace orva
