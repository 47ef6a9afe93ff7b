// Frames: GStreamer's in memory, as the checked library takes them, and their conversion.
#pragma once

#include "formats.hpp"

namespace orva::gst {

// Converts some rows of a mapped frame into those of another one of the same size. Their planes lie
// wherever their buffers have them; what does not fit into these is refused.
Result convertRows(const GstVideoFrame& source, const GstVideoFrame& destination,
                   const Options& options, RowRange rows);

}  // namespace orva::gst
