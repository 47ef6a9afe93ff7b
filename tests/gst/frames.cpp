// Frames in buffers, and the library's own conversion of them.
#include "gst/frames.hpp"

#include <algorithm>
#include <cstring>

namespace test {
namespace {

// Before any test: GStreamer, and the plugin from where it was built.
const bool isReady = [] {
    gst_init(nullptr, nullptr);
    GError* error = nullptr;
    if (!gst_plugin_load_file(ORVA_GST_PLUGIN, &error)) {
        g_error("%s", error->message);
    }
    return true;
}();

GstVideoInfo infoOf(const std::string& text) {
    GstVideoInfo info;
    GstCaps* caps = gst_caps_from_string(text.c_str());
    if (!caps || !gst_video_info_from_caps(&info, caps)) {
        g_error("no caps of a frame: %s", text.c_str());
    }
    gst_caps_unref(caps);
    return info;
}

Buffer noise(std::size_t size, Random& random) {
    Buffer buffer(gst_buffer_new_allocate(nullptr, size, nullptr));
    for (gsize done = 0; done < size;) {
        const auto bytes = runs(std::min<gsize>(size - done, 65536), random);
        done += gst_buffer_fill(buffer.get(), done, bytes.data(), bytes.size());
    }
    return buffer;
}

const NamedFormat& formatOf(const GstVideoInfo& info) {
    return formatNamed(GST_VIDEO_INFO_NAME(&info));
}

// The frame's rows, without what lies between them.
orva::Image readFrame(const Buffer& buffer, GstVideoInfo info) {
    const orva::Format format = formatOf(info).orva;
    auto image =
        orva::Image::create(format, static_cast<std::uint32_t>(info.width),
                            static_cast<std::uint32_t>(GST_VIDEO_INFO_FIELD_HEIGHT(&info)));
    GstVideoFrame frame;
    if (!image || !gst_video_frame_map(&frame, &info, buffer.get(), GST_MAP_READ)) {
        g_error("a frame cannot be read");
    }
    guint plane = 0;
    for (const orva::PlaneIndex p : {orva::mainPlane, orva::chromaPlane, orva::crPlane}) {
        if (orva::formatInfo(format).planes[p].unitBytes == 0) {
            continue;
        }
        for (std::uint32_t y = 0; y < image->height(); ++y) {
            const auto row = image->row(y, p);
            std::memcpy(row.data(),
                        static_cast<const char*>(GST_VIDEO_FRAME_PLANE_DATA(&frame, plane)) +
                            static_cast<std::ptrdiff_t>(y) *
                                GST_VIDEO_FRAME_PLANE_STRIDE(&frame, plane),
                        row.size());
        }
        ++plane;
    }
    gst_video_frame_unmap(&frame);
    return std::move(*image);
}

void setPadding(orva::Image& image, const NamedFormat& format, int value) {
    for (std::uint32_t y = 0; format.padding >= 0 && y < image.height(); ++y) {
        for (std::uint32_t x = 0; x < image.width(); ++x) {
            image.row(y)[4 * x + static_cast<std::uint32_t>(format.padding)] = std::byte(value);
        }
    }
}

}  // namespace

const NamedFormat& formatNamed(const std::string& name) {
    return *std::ranges::find(namedFormats, name, &NamedFormat::name);
}

std::string capsOf(const std::string& format, int width, int height, const std::string& more) {
    return "video/x-raw,format=" + format + ",framerate=25/1,width=" + std::to_string(width) +
           ",height=" + std::to_string(height) + (more.empty() ? "" : "," + more);
}

Buffer plainFrame(const std::string& caps, Random& random) {
    return noise(infoOf(caps).size, random);
}

Buffer paddedFrame(const std::string& caps, Random& random, bool isInPieces) {
    const GstVideoInfo info = infoOf(caps);
    gsize offsets[GST_VIDEO_MAX_PLANES] = {};
    gint strides[GST_VIDEO_MAX_PLANES] = {};
    Buffer buffer(gst_buffer_new());
    gsize size = 0;
    // Of which the picture may be the first rows and columns only.
    const guint wider = 12 * pick(random, 2), higher = 3 * pick(random, 2);
    for (guint plane = 0; plane < info.finfo->n_planes; ++plane) {
        strides[plane] = GST_VIDEO_INFO_PLANE_STRIDE(&info, plane) +
                         static_cast<gint>(4 * wider + 2 * pick(random, 40));
        offsets[plane] = size + 2 * pick(random, 40);
        const gsize end = offsets[plane] + static_cast<gsize>(strides[plane]) *
                                               (static_cast<guint>(info.height) + higher);
        if (isInPieces) {
            Buffer piece = noise(end - size, random);
            gst_buffer_append_memory(buffer.get(), gst_buffer_get_all_memory(piece.get()));
        }
        size = end;
    }
    if (!isInPieces) {
        buffer = noise(size, random);
    }
    gst_buffer_add_video_meta_full(
        buffer.get(), GST_VIDEO_FRAME_FLAG_NONE, GST_VIDEO_INFO_FORMAT(&info),
        static_cast<guint>(info.width) + wider, static_cast<guint>(info.height) + higher,
        info.finfo->n_planes, offsets, strides);
    return buffer;
}

Element::Element(const std::string& properties)
    : harness(gst_harness_new_parse(("orvaconvert " + properties).c_str())) {}

Element::Element(const std::string& in, const std::string& out, const std::string& properties)
    : Element(properties) {
    gst_harness_set_sink_caps_str(harness, out.c_str());
    gst_harness_set_src_caps_str(harness, in.c_str());
}

Buffer Element::operator()(const Buffer& frame) {
    return Buffer(gst_harness_push_and_pull(harness, gst_buffer_ref(frame.get())));
}

std::string Element::outCaps() const {
    GstCaps* caps = gst_pad_get_current_caps(harness->sinkpad);
    gchar* text = gst_caps_to_string(caps);
    const std::string result = text;
    g_free(text);
    gst_caps_unref(caps);
    return result;
}

bool isConverted(const Buffer& in, const std::string& inCaps, const Buffer& out,
                 const std::string& outCaps, const orva::Options& options) {
    if (!out) {
        return false;
    }
    const GstVideoInfo from = infoOf(inCaps), to = infoOf(outCaps);
    orva::Image source = readFrame(in, from), result = readFrame(out, to),
                expected = readFrame(out, to);
    setPadding(source, formatOf(from), options.alpha);
    if (const auto done = orva::convert(source.view(), expected.view(), options); !done) {
        g_error("%s", done.describe().c_str());
    }
    setPadding(expected, formatOf(to), 0);
    setPadding(result, formatOf(to), 0);
    for (const orva::PlaneIndex p : {orva::mainPlane, orva::chromaPlane, orva::crPlane}) {
        for (std::uint32_t y = 0; y < result.height(); ++y) {
            if (!std::ranges::equal(result.row(y, p), expected.row(y, p))) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace test
