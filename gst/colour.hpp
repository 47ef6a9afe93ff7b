// What the colours of a stream mean: GStreamer's colorimetry and chroma sites, and which of them
// the checked library brings into which.
#pragma once

#include "formats.hpp"

#include <optional>
#include <string>
#include <vector>

namespace orva::gst {

// The colorimetry that a stream of this model declares with the text, read as GStreamer reads it;
// empty if there is no text, or none that fits, so that GStreamer's default holds.
std::optional<GstVideoColorimetry> declaredColorimetry(const char* text, Model model);

// GStreamer's, for streams that declare none.
GstVideoColorimetry defaultColorimetry(Model model, int height);

// The ways to write it in caps, the usual one first.
std::vector<std::string> spellingsOf(const GstVideoColorimetry& colorimetry);

// The colorimetries that a stream can be converted to, or from; the one to choose where there is a
// choice comes first, and again among the others. Of a stream that declares none GStreamer's
// default holds, which of YCbCr the height decides, but what is not declared may be declared as
// anything.
//
// The library computes matrices and ranges; transfer functions and primaries stay. Those of BT.601,
// BT.709 and sRGB count as the same, as they do to cameras, mixers and screens for such video.
std::vector<GstVideoColorimetry>
convertibleColorimetries(const std::optional<GstVideoColorimetry>& declared, Model from, Model to,
                         int height);

// The one to choose.
GstVideoColorimetry preferredColorimetry(const std::optional<GstVideoColorimetry>& declared,
                                         Model from, Model to, int height);

// Whether chroma of a site that caps declare lies on the even pixels of a row.
bool isCosited(GstVideoChromaSite site);

// The options for frames of these formats, without alpha: empty if the library cannot convert their
// colorimetries. `chroma` is for where the source does not say how its chroma lies.
std::optional<Options> optionsFor(const GstVideoInfo& source, const GstVideoInfo& destination,
                                  GstVideoChromaSite declaredSite, Chroma chroma);

}  // namespace orva::gst
