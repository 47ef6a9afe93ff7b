// Frames: GStreamer's in memory, as the checked library takes them, and their conversion.
#pragma once

#include "formats.hpp"

namespace orva::gst {

// Pixels.
struct Size {
    std::uint32_t width, height;
};

// Converts some rows of a mapped frame into those of another one, both of the size: buffers may say
// that there is more. Their planes lie wherever their buffers have them; what does not fit into
// these is refused.
Result convertRows(const GstVideoFrame& source, const GstVideoFrame& destination, Size size,
                   const Options& options, RowRange rows);

}  // namespace orva::gst
