// The conversion as its caller sees it: checks, then the engine.
#include "frame/wide_registers.hpp"
#include "picture/active_kernels.hpp"
#include "picture/rows.hpp"
#include "validate.hpp"

#include <algorithm>

namespace orva {
namespace {

// From this many bytes read and written on, it pays to write past the cache what is only moved:
// less stays in the caches until it is read again. It is a little below an alpha plane of
// 1920x1080.
constexpr std::uint64_t streamedBytes = 2'000'000;

template <class Byte>
using ByteLike = std::conditional_t<std::is_const_v<Byte>, const std::uint8_t, std::uint8_t>;

// The planes from a row on.
template <class Byte>
picture::ImageRows<ByteLike<Byte>> rowsOf(const BasicImageView<Byte>& image, std::uint32_t first) {
    const FormatInfo& info = formatInfo(image.format);
    const auto from = [&](PlaneIndex index) {
        const BasicPlane<Byte>& plane = planeOf(image, index);
        picture::PlaneRows<ByteLike<Byte>> rows;
        if (info.planes[index].unitBytes > 0) {
            // A single row may have any pitch, even one that no address can move by.
            const std::ptrdiff_t pitch = image.height > 1 ? plane.pitch : 0;
            Byte* const top = firstRow(plane, image.height);
            rows = {reinterpret_cast<ByteLike<Byte>*>(top) +
                        static_cast<std::ptrdiff_t>(first) * pitch,
                    pitch};
        }
        return rows;
    };
    if (info.model == Model::alpha) {
        return {{{}, {}, {}, from(mainPlane)}};
    }
    return {{from(mainPlane), from(chromaPlane), from(crPlane), from(alphaPlane)}};
}

std::uint64_t bytesOf(Format format, std::uint32_t width, std::uint32_t height) {
    std::uint64_t row = 0;
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        row += rowBytes(format, plane, width);
    }
    return row * height;
}

// What is computed is not written past the cache by itself: the detour costs what it saves.
picture::StreamingKinds streamingKinds(Streaming wish, Format source, Format destination,
                                       std::uint32_t width, std::uint32_t height) {
    if (wish != Streaming::automatic) {
        return {wish == Streaming::always, wish == Streaming::always};
    }
    const std::uint64_t bytes =
        bytesOf(source, width, height) + bytesOf(destination, width, height);
    return {bytes >= streamedBytes, false};
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
    const picture::Kernels& kernels = *picture::activeKernels;
    const picture::Plan plan =
        picture::makePlan(source.format, destination.format, options, kernels);
    picture::convertRows(
        plan, kernels,
        {rowsOf(source, rows.first), rowsOf(destination, rows.first), source.width, height},
        streamingKinds(options.streaming, source.format, destination.format, source.width,
                       source.height));
    // The oldest table alone has no wide registers.
    if (&kernels != picture::tables[0].kernels) {
        leaveWideRegisters();
    }
    return {};
}

}  // namespace orva
