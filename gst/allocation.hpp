// Buffers and rows that begin where the library is fastest: what is asked of pools.
#pragma once

#include <gst/gst.h>

namespace orva::gst {

// Asks every pool of an allocation query, and who takes memory without one, for buffers that begin
// at a cache line.
void alignAllocation(GstQuery* query);

// Has the query's first pool, which is configured but not yet active, begin all rows at cache
// lines. For receivers that read GstVideoMeta.
void alignRows(GstQuery* query);

}  // namespace orva::gst
