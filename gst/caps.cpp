// Which caps become which.
#include "caps.hpp"

#include "colour.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

namespace orva::gst {
namespace {

struct FreeStructure {
    void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};
using Structure = std::unique_ptr<GstStructure, FreeStructure>;

Structure copyOf(const GstStructure* structure) { return Structure(gst_structure_copy(structure)); }

// What a field may be, a string or a list of them; nothing if it is not there.
std::vector<std::string> stringsOf(const GstStructure* structure, const char* field) {
    std::vector<std::string> strings;
    const GValue* value = gst_structure_get_value(structure, field);
    const auto add = [&](const GValue* item) {
        if (G_VALUE_HOLDS_STRING(item) && g_value_get_string(item)) {
            strings.emplace_back(g_value_get_string(item));
        }
    };
    if (value && GST_VALUE_HOLDS_LIST(value)) {
        for (guint i = 0; i < gst_value_list_get_size(value); ++i) {
            add(gst_value_list_get_value(value, i));
        }
    } else if (value) {
        add(value);
    }
    return strings;
}

// In this order, each once.
void setStrings(GstStructure* structure, const char* field,
                const std::vector<std::string>& strings) {
    GValue list = G_VALUE_INIT;
    gst_value_list_init(&list, static_cast<guint>(strings.size()));
    std::set<std::string_view> before;
    for (const std::string& text : strings) {
        if (before.insert(text).second) {
            GValue item = G_VALUE_INIT;
            g_value_init(&item, G_TYPE_STRING);
            g_value_set_string(&item, text.c_str());
            gst_value_list_append_and_take_value(&list, &item);
        }
    }
    gst_structure_take_value(structure, field, &list);
}

bool isIn(GstVideoFormat format, const std::vector<std::string>& names) {
    return std::ranges::find(names, gst_video_format_to_string(format)) != names.end();
}

// Those of this model that the structure has, or all where it does not say.
std::vector<const Format*> formatsIn(const GstStructure* structure, Model model) {
    const bool any = !gst_structure_has_field(structure, "format");
    const std::vector<std::string> names = stringsOf(structure, "format");
    std::vector<const Format*> result;
    for (const Format& format : formats()) {
        if (modelOf(format) == model && (any || isIn(format.gstreamer, names))) {
            result.push_back(&format);
        }
    }
    return result;
}

// All of this model, the named ones first.
std::vector<std::string> formatNames(Model model, const std::vector<const Format*>& first) {
    std::vector<std::string> names;
    const auto add = [&](const Format& format) {
        names.emplace_back(gst_video_format_to_string(format.gstreamer));
    };
    for (const Format* format : first) {
        add(*format);
    }
    for (const Format& format : formats()) {
        if (modelOf(format) == model) {
            add(format);
        }
    }
    return names;
}

// Sets what the colours of a structure become. They stay open where nothing is known of them: no
// size for GStreamer's default, or a receiver that takes any.
void setColorimetry(GstStructure* structure, GstPadDirection direction, Model from, Model to) {
    std::vector<std::string> result;
    std::set<std::array<int, 4>> before;  // chained converters ask with all of them at once
    const auto add = [&](const std::optional<GstVideoColorimetry>& declared) {
        int height = 0;
        const bool hasHeight = gst_structure_get_int(structure, "height", &height);
        if (!declared && (direction == GST_PAD_SRC || !hasHeight)) {
            return false;
        }
        for (const auto& c : convertibleColorimetries(declared, from, to, height)) {
            if (before.insert({c.range, c.matrix, c.transfer, c.primaries}).second) {
                std::ranges::move(spellingsOf(c), std::back_inserter(result));
            }
        }
        return true;
    };
    const std::vector<std::string> texts = stringsOf(structure, "colorimetry");
    bool isKnown = !texts.empty() || add(std::nullopt);
    for (const std::string& text : texts) {
        if (from == to) {
            result.push_back(text);  // as it is written
        }
        isKnown = add(declaredColorimetry(text.c_str(), from)) && isKnown;
    }
    if (isKnown) {
        setStrings(structure, "colorimetry", result);
    } else {
        gst_structure_remove_field(structure, "colorimetry");
    }
}

// Sets where chroma lies on the other pad; false if chroma of that pad's side cannot be made. What
// is made of RGB lies on the even pixels.
bool setChromaSite(GstStructure* structure, GstPadDirection direction, Model from, Model to) {
    const bool isMade = direction == GST_PAD_SINK ? from == Model::rgb : to == Model::rgb;
    if (from == to) {
        return true;  // chroma stays where it is
    }
    if (to == Model::ycbcr) {
        if (isMade) {
            setStrings(structure, "chroma-site", {"mpeg2", "cosited"});
        }
        return true;
    }
    const std::vector<std::string> sites = stringsOf(structure, "chroma-site");
    gst_structure_remove_field(structure, "chroma-site");
    return !isMade || sites.empty() || std::ranges::any_of(sites, [](const std::string& site) {
        return isCosited(gst_video_chroma_site_from_string(site.c_str()));
    });
}

// Whether a neighbour that makes streams of these caps leaves its colours to GStreamer's default,
// and that is one of those listed. Caps that name colours would not be fixed for a neighbour that
// has no choice to make, such as a filter behind a file.
bool leavesToDefault(const GstCaps* filter, const GstStructure* listed, Model model) {
    const std::vector<std::string> names = stringsOf(listed, "colorimetry");
    for (guint i = 0; i < gst_caps_get_size(filter); ++i) {
        const GstStructure* structure = gst_caps_get_structure(filter, i);
        int height = 0;
        if (gst_structure_has_field(structure, "colorimetry") ||
            !gst_structure_get_int(structure, "height", &height)) {
            return false;
        }
        const auto usual = spellingsOf(defaultColorimetry(model, height));
        if (std::ranges::find(names, usual.front()) == names.end()) {
            return false;
        }
    }
    return !gst_caps_is_empty(filter);
}

bool isEmpty(const GstStructure* structure, const char* field) {
    const GValue* value = gst_structure_get_value(structure, field);
    return value && GST_VALUE_HOLDS_LIST(value) && gst_value_list_get_size(value) == 0;
}

// Whether frames with these features are in memory that can be converted.
bool isInMemory(const GstCapsFeatures* features) {
    if (gst_caps_features_is_any(features)) {
        return false;
    }
    for (guint i = 0; i < gst_caps_features_get_size(features); ++i) {
        const std::string_view feature = gst_caps_features_get_nth(features, i);
        if (feature != GST_CAPS_FEATURE_MEMORY_SYSTEM_MEMORY &&
            feature != GST_CAPS_FEATURE_FORMAT_INTERLACED && !feature.starts_with("meta:")) {
            return false;
        }
    }
    return true;
}

}  // namespace

GstCaps* templateCaps() {
    std::vector<GstVideoFormat> all;
    for (const Format& format : formats()) {
        all.push_back(format.gstreamer);
    }
    const auto count = static_cast<guint>(all.size());
    GstCaps* caps = gst_video_make_raw_caps(all.data(), count);
    gst_caps_append(caps, gst_video_make_raw_caps_with_features(all.data(), count,
                                                                gst_caps_features_new_any()));
    return caps;
}

GstCaps* transformedCaps(GstPadDirection direction, const GstCaps* caps, GstCaps* filter) {
    GstCaps* result = gst_caps_new_empty();
    for (guint i = 0; i < gst_caps_get_size(caps); ++i) {
        const GstStructure* structure = gst_caps_get_structure(caps, i);
        GstCapsFeatures* features = gst_caps_get_features(caps, i);
        const auto add = [&](Structure added) {
            result = gst_caps_merge_structure_full(result, added.release(),
                                                   gst_caps_features_copy(features));
        };
        if (!isInMemory(features)) {
            add(copyOf(structure));
            continue;
        }
        constexpr std::pair<Model, Model> models[] = {{Model::ycbcr, Model::ycbcr},
                                                      {Model::rgb, Model::rgb},
                                                      {Model::ycbcr, Model::rgb},
                                                      {Model::rgb, Model::ycbcr}};
        for (const auto& [from, to] : models) {
            const auto sources = formatsIn(structure, from);
            Structure other = copyOf(structure);
            if (sources.empty() || !setChromaSite(other.get(), direction, from, to)) {
                continue;
            }
            setColorimetry(other.get(), direction, from, to);
            setStrings(other.get(), "format",
                       formatNames(to, from == to ? sources : std::vector<const Format*>{}));
            if (isEmpty(other.get(), "colorimetry")) {
                continue;
            }
            if (filter && direction == GST_PAD_SRC && leavesToDefault(filter, other.get(), to)) {
                gst_structure_remove_field(other.get(), "colorimetry");
            }
            add(std::move(other));
        }
    }
    if (filter) {
        GstCaps* const all = result;
        result = gst_caps_intersect_full(filter, all, GST_CAPS_INTERSECT_FIRST);
        gst_caps_unref(all);
    }
    return result;
}

GstCaps* fixatedCaps(const GstCaps* caps, GstCaps* others) {
    if (gst_caps_is_subset(caps, others)) {
        gst_caps_replace(&others, const_cast<GstCaps*>(caps));
        return others;
    }
    const GstStructure* given = gst_caps_get_structure(caps, 0);
    const Format* from =
        formatOf(gst_video_format_from_string(gst_structure_get_string(given, "format")));
    guint best = 0;
    const Format* to = nullptr;
    for (guint i = 0; i < gst_caps_get_size(others); ++i) {
        for (const Model model : {Model::ycbcr, Model::rgb}) {
            for (const Format* format : formatsIn(gst_caps_get_structure(others, i), model)) {
                if (from && (!to || costOf(*from, *format) < costOf(*from, *to))) {
                    best = i;
                    to = format;
                }
            }
        }
    }
    if (!to) {
        return gst_caps_fixate(others);  // in memory that is only passed on
    }
    GstCaps* chosen = gst_caps_copy_nth(others, best);
    gst_caps_unref(others);
    GstStructure* structure = gst_caps_get_structure(chosen, 0);
    gst_structure_set(structure, "format", G_TYPE_STRING, gst_video_format_to_string(to->gstreamer),
                      nullptr);

    int height = 0;
    gst_structure_get_int(given, "height", &height);
    const auto preferred = preferredColorimetry(
        declaredColorimetry(gst_structure_get_string(given, "colorimetry"), modelOf(*from)),
        modelOf(*from), modelOf(*to), height);
    gst_structure_fixate_field_string(structure, "colorimetry",
                                      spellingsOf(preferred).front().c_str());
    return gst_caps_fixate(chosen);
}

GstVideoChromaSite declaredChromaSite(const GstCaps* caps) {
    const char* site = gst_structure_get_string(gst_caps_get_structure(caps, 0), "chroma-site");
    return site ? gst_video_chroma_site_from_string(site) : GST_VIDEO_CHROMA_SITE_UNKNOWN;
}

}  // namespace orva::gst
