// The element orvaconvert: a filter that converts every frame, or passes it on as it is.
#pragma once

#include <gst/gst.h>

namespace orva::gst {

// Makes it known to the plugin.
gboolean registerElement(GstPlugin* plugin);

}  // namespace orva::gst
