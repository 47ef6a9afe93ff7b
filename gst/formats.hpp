// The formats of GStreamer that the checked library converts, and what it calls them.
#pragma once

#include <gst/video/video.h>
#include <orva/convert.hpp>

#include <span>

namespace orva::gst {

struct Format {
    GstVideoFormat gstreamer;
    orva::Format orva;
    bool hasPadding;  // a fourth byte that means nothing where the library has alpha
};

// All of them. GRAY8 is not among them: it is luma, and the library's plane of bytes is alpha.
std::span<const Format> formats();

// The entry of a format; null for one that is not converted.
const Format* formatOf(GstVideoFormat format);

inline Model modelOf(const Format& format) { return formatInfo(format.orva).model; }

// What a change of format costs: 0 for none, more the more of the picture it loses or computes.
int costOf(const Format& from, const Format& to);

}  // namespace orva::gst
