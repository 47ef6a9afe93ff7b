// The plugin's description, which GStreamer looks for in the file.
#include "element.hpp"

static gboolean initPlugin(GstPlugin* plugin) { return orva::gst::registerElement(plugin); }

GST_PLUGIN_DEFINE(GST_VERSION_MAJOR, GST_VERSION_MINOR, orva,
                  "Pixel formats of uncompressed video, converted at the speed of memory",
                  initPlugin, PACKAGE_VERSION, "Proprietary", "gstreamer1.0-orva",
                  "Unknown package origin")
