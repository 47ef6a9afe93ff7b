// The element's class: properties, and what GStreamer asks of a filter, handed on to the other
// files.
#include "element.hpp"

#include "allocation.hpp"
#include "caps.hpp"
#include "colour.hpp"
#include "frames.hpp"
#include "row_tasks.hpp"

#include <gst/video/gstvideofilter.h>

#include <utility>

GST_DEBUG_CATEGORY_STATIC(orvaDebug);
#define GST_CAT_DEFAULT orvaDebug

struct OrvaConvert {
    GstVideoFilter filter;

    // Properties, under the object's lock.
    guint threads;
    orva::Chroma chroma;
    gint alpha;

    GstVideoChromaSite declaredSite;  // of the incoming stream
    orva::gst::RowTasks* tasks;       // between start and stop
};

struct OrvaConvertClass {
    GstVideoFilterClass filter;
};

G_DEFINE_TYPE(OrvaConvert, orva_convert_element, GST_TYPE_VIDEO_FILTER)

namespace orva::gst {
namespace {

enum Property : guint { propertyThreads = 1, propertyChroma, propertyAlpha };

OrvaConvert* elementOf(void* object) { return static_cast<OrvaConvert*>(object); }

GType chromaType() {
    static const GEnumValue values[] = {
        {static_cast<gint>(Chroma::cosited),
         "Chroma lies on even pixels: interpolated between them, filtered where it is made of RGB",
         "cosited"},
        {static_cast<gint>(Chroma::nearest),
         "Both pixels of a pair have its chroma, which is the even pixel's where it is made of RGB",
         "nearest"},
        {0, nullptr, nullptr}};
    static const GType type = g_enum_register_static("OrvaConvertChroma", values);
    return type;
}

// ---- Properties ---------------------------------------------------------------------------------

void setProperty(GObject* object, guint id, const GValue* value, GParamSpec* property) {
    OrvaConvert* const self = elementOf(object);
    GST_OBJECT_LOCK(self);
    switch (id) {
    case propertyThreads:
        self->threads = g_value_get_uint(value);
        break;
    case propertyChroma:
        self->chroma = static_cast<Chroma>(g_value_get_enum(value));
        break;
    case propertyAlpha:
        self->alpha = g_value_get_int(value);
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, property);
    }
    GST_OBJECT_UNLOCK(self);
}

void getProperty(GObject* object, guint id, GValue* value, GParamSpec* property) {
    OrvaConvert* const self = elementOf(object);
    GST_OBJECT_LOCK(self);
    switch (id) {
    case propertyThreads:
        g_value_set_uint(value, self->threads);
        break;
    case propertyChroma:
        g_value_set_enum(value, static_cast<gint>(self->chroma));
        break;
    case propertyAlpha:
        g_value_set_int(value, self->alpha);
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, property);
    }
    GST_OBJECT_UNLOCK(self);
}

void addProperties(GObjectClass* object) {
    const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
    g_object_class_install_property(
        object, propertyThreads,
        g_param_spec_uint(
            "n-threads", "Threads",
            "Threads that convert the rows of a frame together; 0: one for each processor", 0, 1024,
            1, static_cast<GParamFlags>(flags | GST_PARAM_MUTABLE_READY)));
    g_object_class_install_property(
        object, propertyChroma,
        g_param_spec_enum(
            "chroma", "Chroma",
            "How chroma is made of RGB, and where it lies in YCbCr whose caps do not say so",
            chromaType(), static_cast<gint>(Chroma::cosited),
            static_cast<GParamFlags>(flags | GST_PARAM_MUTABLE_PLAYING)));
    g_object_class_install_property(
        object, propertyAlpha,
        g_param_spec_int("alpha", "Alpha", "Alpha of all pixels where the incoming format has none",
                         0, 255, 255, static_cast<GParamFlags>(flags | GST_PARAM_MUTABLE_PLAYING)));
}

// ---- Streams ------------------------------------------------------------------------------------

GstCaps* transformCaps(GstBaseTransform*, GstPadDirection direction, GstCaps* caps,
                       GstCaps* filter) {
    return transformedCaps(direction, caps, filter);
}

GstCaps* fixateCaps(GstBaseTransform*, GstPadDirection, GstCaps* caps, GstCaps* others) {
    return fixatedCaps(caps, others);
}

gboolean setInfo(GstVideoFilter* filter, GstCaps* sourceCaps, GstVideoInfo* source,
                 GstCaps* destinationCaps, GstVideoInfo* destination) {
    OrvaConvert* const self = elementOf(filter);
    self->declaredSite = declaredChromaSite(sourceCaps);
    if (!optionsFor(*source, *destination, self->declaredSite, Chroma::cosited)) {
        GST_ERROR_OBJECT(self,
                         "cannot convert %" GST_PTR_FORMAT " to %" GST_PTR_FORMAT
                         ": the colorimetries differ in more than matrix and range",
                         static_cast<void*>(sourceCaps), static_cast<void*>(destinationCaps));
        return FALSE;
    }
    // Caps may differ in what changes no byte.
    const GstVideoColorimetry &from = source->colorimetry, &to = destination->colorimetry;
    gst_base_transform_set_passthrough(
        &filter->element, GST_VIDEO_INFO_FORMAT(source) == GST_VIDEO_INFO_FORMAT(destination) &&
                              from.matrix == to.matrix && from.range == to.range);
    return TRUE;
}

GstFlowReturn transformFrame(GstVideoFilter* filter, GstVideoFrame* source,
                             GstVideoFrame* destination) {
    OrvaConvert* const self = elementOf(filter);
    GST_OBJECT_LOCK(self);
    const Chroma chroma = self->chroma;
    const int alpha = self->alpha;
    GST_OBJECT_UNLOCK(self);

    auto options = optionsFor(filter->in_info, filter->out_info, self->declaredSite, chroma);
    if (!options) {
        return GST_FLOW_NOT_NEGOTIATED;
    }
    options->alpha = alpha;
    const Size size{
        static_cast<std::uint32_t>(GST_VIDEO_INFO_WIDTH(&filter->in_info)),
        static_cast<std::uint32_t>(GST_VIDEO_INFO_FIELD_HEIGHT(&filter->in_info)),
    };
    const Result result = self->tasks->run(size.height, [&](RowRange rows) {
        return convertRows(*source, *destination, size, *options, rows);
    });
    if (!result) {
        GST_ELEMENT_ERROR(self, STREAM, FORMAT, ("A frame does not fit into its buffer."),
                          ("%s", result.describe().c_str()));
        return GST_FLOW_ERROR;
    }
    return GST_FLOW_OK;
}

// What is attached to a frame stays right as long as it is not about the bytes or their colours.
gboolean transformMeta(GstBaseTransform* base, GstBuffer* out, GstMeta* meta, GstBuffer* in) {
    static const char* const kept[] = {GST_META_TAG_VIDEO_STR, GST_META_TAG_VIDEO_ORIENTATION_STR,
                                       GST_META_TAG_VIDEO_SIZE_STR, nullptr};
    const gchar* const* tags = gst_meta_api_type_get_tags(meta->info->api);
    for (; tags && *tags; ++tags) {
        if (!g_strv_contains(kept, *tags)) {
            return GST_BASE_TRANSFORM_CLASS(orva_convert_element_parent_class)
                ->transform_meta(base, out, meta, in);
        }
    }
    return TRUE;
}

// ---- Buffers and threads ------------------------------------------------------------------------

gboolean proposeAllocation(GstBaseTransform* base, GstQuery* decided, GstQuery* query) {
    if (!GST_BASE_TRANSFORM_CLASS(orva_convert_element_parent_class)
             ->propose_allocation(base, decided, query)) {
        return FALSE;
    }
    if (decided) {  // else frames are passed on, and what is behind has answered
        alignAllocation(query);
    }
    return TRUE;
}

gboolean decideAllocation(GstBaseTransform* base, GstQuery* query) {
    // The base class takes this answer out.
    const bool receiverKnowsStrides =
        gst_query_find_allocation_meta(query, GST_VIDEO_META_API_TYPE, nullptr);
    alignAllocation(query);
    if (!GST_BASE_TRANSFORM_CLASS(orva_convert_element_parent_class)
             ->decide_allocation(base, query)) {
        return FALSE;
    }
    if (receiverKnowsStrides) {
        alignRows(query);
    }
    return TRUE;
}

gboolean start(GstBaseTransform* base) {
    OrvaConvert* const self = elementOf(base);
    GST_OBJECT_LOCK(self);
    const guint threads = self->threads ? self->threads : g_get_num_processors();
    GST_OBJECT_UNLOCK(self);
    self->tasks = new RowTasks(threads);
    return TRUE;
}

gboolean stop(GstBaseTransform* base) {
    delete std::exchange(elementOf(base)->tasks, nullptr);
    return TRUE;
}

void initClass(OrvaConvertClass* klass) {
    GST_DEBUG_CATEGORY_INIT(orvaDebug, "orvaconvert", 0, "ORVA's converter");
    auto* const object = G_OBJECT_CLASS(klass);
    object->set_property = setProperty;
    object->get_property = getProperty;
    addProperties(object);
    gst_type_mark_as_plugin_api(chromaType(), GstPluginAPIFlags{});

    auto* const element = GST_ELEMENT_CLASS(klass);
    gst_element_class_set_static_metadata(
        element, "ORVA video converter", "Filter/Converter/Video/Colorspace",
        "Converts video between YCbCr 4:2:2 of 8 and 10 bits and RGB, exact to 0.6 of a code",
        "The ORVA maintainers");
    GstCaps* const caps = templateCaps();
    gst_element_class_add_pad_template(
        element, gst_pad_template_new("sink", GST_PAD_SINK, GST_PAD_ALWAYS, caps));
    gst_element_class_add_pad_template(
        element, gst_pad_template_new("src", GST_PAD_SRC, GST_PAD_ALWAYS, caps));
    gst_caps_unref(caps);

    auto* const transform = GST_BASE_TRANSFORM_CLASS(klass);
    transform->transform_caps = transformCaps;
    transform->fixate_caps = fixateCaps;
    transform->transform_meta = transformMeta;
    transform->propose_allocation = proposeAllocation;
    transform->decide_allocation = decideAllocation;
    transform->start = start;
    transform->stop = stop;
    transform->passthrough_on_same_caps = TRUE;

    auto* const filter = GST_VIDEO_FILTER_CLASS(klass);
    filter->set_info = setInfo;
    filter->transform_frame = transformFrame;
}

}  // namespace

gboolean registerElement(GstPlugin* plugin) {
    return gst_element_register(plugin, "orvaconvert", GST_RANK_NONE,
                                orva_convert_element_get_type());
}

}  // namespace orva::gst

static void orva_convert_element_class_init(OrvaConvertClass* klass) {
    orva::gst::initClass(klass);
}

static void orva_convert_element_init(OrvaConvert* self) {
    self->threads = 1;
    self->chroma = orva::Chroma::cosited;
    self->alpha = 255;
}
