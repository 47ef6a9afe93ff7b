// Planes of GStreamer's frames, and what of them the library does not know: bytes that are no
// alpha.
#include "frames.hpp"

#include <algorithm>

namespace orva::gst {
namespace {

// A plane with the memory that it lies in, so that strides beyond it are found.
Plane planeOf(const GstVideoFrame& frame, guint index, std::uint32_t height) {
    // The memory of a buffer without GstVideoMeta is one piece, else each plane is mapped.
    const GstMapInfo& map = frame.map[frame.meta ? index : 0];
    auto* const memory = reinterpret_cast<std::byte*>(map.data);
    const std::ptrdiff_t pitch = GST_VIDEO_FRAME_PLANE_STRIDE(&frame, index);
    const std::ptrdiff_t first = static_cast<std::byte*>(frame.data[index]) - memory;
    const std::ptrdiff_t lowest =
        pitch < 0 ? first + pitch * (static_cast<std::ptrdiff_t>(height) - 1) : first;
    const auto size = static_cast<std::ptrdiff_t>(map.size);
    if (lowest < 0 || lowest > size) {
        return {{memory, 0}, pitch};
    }
    return {{memory + lowest, static_cast<std::size_t>(size - lowest)}, pitch};
}

ImageView viewOf(const GstVideoFrame& frame, const Format& format, Size size) {
    ImageView view;
    view.format = format.orva;
    view.width = size.width;
    view.height = size.height;
    guint index = 0;
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane}) {
        if (formatInfo(format.orva).planes[plane].unitBytes > 0) {
            orva::planeOf(view, plane) = planeOf(frame, index++, view.height);
        }
    }
    return view;
}

// The rows of a format whose fourth byte means nothing, for a format with alpha: by way of one
// without any, so that all alpha is the option's. What lies between stays in the caches, and what
// goes out past them: the library would see some rows of a small picture, where a whole one is
// large.
Result convertWithoutFourthByte(const ConstImageView& source, const ImageView& destination,
                                Options options, RowRange rows) {
    constexpr std::uint64_t bytesBetween = 65536, bytesOfLarge = 2'000'000;
    constexpr orva::Format betweenFormat = orva::Format::BGR24I;
    const auto stripRows = static_cast<std::uint32_t>(std::clamp<std::uint64_t>(
        bytesBetween / rowBytes(betweenFormat, mainPlane, source.width), 1, rows.count));
    auto strip = Image::create(betweenFormat, source.width, stripRows);
    if (!strip) {
        return {ErrorCode::badSize, "width", source.width, "there is no memory for a row"};
    }
    if (std::uint64_t{8} * source.width * source.height >= bytesOfLarge) {
        options.streaming = Streaming::always;
    }
    for (std::uint32_t done = 0; done < rows.count; done += stripRows) {
        const std::uint32_t first = rows.first + done;
        const std::uint32_t count = std::min(stripRows, rows.count - done);
        const auto from = source.cropped(0, first, source.width, count);
        const auto between = strip->view().cropped(0, 0, source.width, count);
        const auto to = destination.cropped(0, first, source.width, count);
        if (!from || !between || !to) {
            return convert(source, destination, options, {first, count});  // says what is wrong
        }
        if (const Result result = convert(*from, *between); !result) {
            return result;
        }
        if (const Result result = convert(*between, *to, options); !result) {
            return result;
        }
    }
    return {};
}

}  // namespace

Result convertRows(const GstVideoFrame& source, const GstVideoFrame& destination, Size size,
                   const Options& options, RowRange rows) {
    const Format* const from = formatOf(GST_VIDEO_FRAME_FORMAT(&source));
    const Format* const to = formatOf(GST_VIDEO_FRAME_FORMAT(&destination));
    if (!from || !to) {
        return {ErrorCode::badFormat, "format", -1, "give formats that the caps have"};
    }
    const ConstImageView in = viewOf(source, *from, size);
    const ImageView out = viewOf(destination, *to, size);
    if (from->hasPadding && !to->hasPadding && formatInfo(to->orva).hasAlpha) {
        return convertWithoutFourthByte(in, out, options, rows);
    }
    return convert(in, out, options, rows);
}

}  // namespace orva::gst
