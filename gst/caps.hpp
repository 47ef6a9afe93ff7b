// Negotiation: which streams become which, and which of several is chosen.
#pragma once

#include <gst/video/video.h>

namespace orva::gst {

// The caps of both pads: every format of any size, in memory that is not the processor's for
// passing through alone.
GstCaps* templateCaps();

// What streams of these caps, on the pad of this direction, can become, or be made of, on the other
// pad: their own formats first. Size, rate, aspect and whatever else caps tell stay. The filter,
// which may be null, is what the other pad's neighbour can do.
GstCaps* transformedCaps(GstPadDirection direction, const GstCaps* caps, GstCaps* filter);

// One stream among `others`, which it takes, for the fixed `caps` of the other pad: the same if
// that is there, else the format that costs least.
GstCaps* fixatedCaps(const GstCaps* caps, GstCaps* others);

// What fixed caps declare; unknown if they do not.
GstVideoChromaSite declaredChromaSite(const GstCaps* caps);

}  // namespace orva::gst
