// The memory of owning images.
#include <orva/convert.hpp>

#include <algorithm>
#include <cstring>
#include <new>

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
    if (info.planes[mainPlane].unitBytes == 0) {
        return std::nullopt;
    }
    std::array<std::uint64_t, planeCount> pitches = {};
    std::uint64_t pitch = 0;  // of all planes
    for (std::uint8_t i = 0; i < planeCount; ++i) {
        pitches[i] = roundUp(rowBytes(format, static_cast<PlaneIndex>(i), width), planeAlignment);
        pitch += pitches[i];
    }
    if (height > 0 && pitch > PTRDIFF_MAX / height) {
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(pitch * height);

    Image image;
    image.memory = ::operator new (std::max<std::size_t>(size, 1), std::align_val_t{planeAlignment},
                                   std::nothrow);
    if (!image.memory) {
        return std::nullopt;
    }
    std::memset(image.memory, 0, size);
    image.planes.format = format;
    image.planes.width = width;
    image.planes.height = height;
    auto* next = static_cast<std::byte*>(image.memory);
    for (std::uint8_t i = 0; i < planeCount; ++i) {
        if (info.planes[i].unitBytes > 0) {
            const auto bytes = static_cast<std::size_t>(pitches[i] * height);
            planeOf(image.planes, static_cast<PlaneIndex>(i)) = {
                {next, bytes}, static_cast<std::ptrdiff_t>(pitches[i])};
            next += bytes;
        }
    }
    return image;
}

Image::~Image() {
    if (memory) {
        ::operator delete (memory, std::align_val_t{planeAlignment});
    }
}

}  // namespace orva
