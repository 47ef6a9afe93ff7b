// Buffers that begin where the library is fastest: what is asked of pools.
#pragma once

#include <gst/gst.h>

namespace orva::gst {

// Asks every pool of an allocation query, and who takes memory without one, for buffers that begin
// at a cache line.
void alignAllocation(GstQuery* query);

}  // namespace orva::gst
