// Colorimetry: how streams write it, what of it is converted, and the library's options for it.
#include "colour.hpp"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <utility>

namespace orva::gst {
namespace {

struct MatrixName {
    GstVideoColorMatrix gstreamer;
    Matrix orva;
};
constexpr MatrixName matrices[] = {{GST_VIDEO_COLOR_MATRIX_BT709, Matrix::bt709},
                                   {GST_VIDEO_COLOR_MATRIX_BT601, Matrix::bt601},
                                   {GST_VIDEO_COLOR_MATRIX_BT2020, Matrix::bt2020}};

std::optional<Matrix> matrixOf(GstVideoColorMatrix matrix) {
    const auto* entry = std::ranges::find(matrices, matrix, &MatrixName::gstreamer);
    return entry == std::ranges::end(matrices) ? std::nullopt : std::optional(entry->orva);
}

Range rangeOf(GstVideoColorRange range) {
    return range == GST_VIDEO_COLOR_RANGE_0_255 ? Range::full : Range::studio;
}

// Those that may stand for one another. The transfer functions of BT.601, BT.709 and BT.2020 are
// the same.
constexpr std::initializer_list<GstVideoTransferFunction> customaryTransfers = {
    GST_VIDEO_TRANSFER_UNKNOWN,   GST_VIDEO_TRANSFER_BT709,     GST_VIDEO_TRANSFER_BT601,
    GST_VIDEO_TRANSFER_BT2020_10, GST_VIDEO_TRANSFER_BT2020_12, GST_VIDEO_TRANSFER_SRGB};
constexpr std::initializer_list<GstVideoColorPrimaries> customaryPrimaries = {
    GST_VIDEO_COLOR_PRIMARIES_UNKNOWN, GST_VIDEO_COLOR_PRIMARIES_BT709,
    GST_VIDEO_COLOR_PRIMARIES_SMPTE170M, GST_VIDEO_COLOR_PRIMARIES_SMPTE240M,
    GST_VIDEO_COLOR_PRIMARIES_BT470BG};

// The customary ones to each other and to what is not declared, any other to itself alone.
template <class Value>
std::vector<Value> sameAs(Value value, bool isDeclared, std::initializer_list<Value> customary,
                          std::initializer_list<Value> others) {
    std::vector<Value> result(customary);
    if (!isDeclared || value == Value{}) {
        result.insert(result.end(), others);
    } else if (std::ranges::find(customary, value) == customary.end()) {
        result = {value, Value{}};
    }
    return result;
}

bool isComputable(const GstVideoColorimetry& colorimetry, Model model) {
    return model == Model::rgb ? colorimetry.range != GST_VIDEO_COLOR_RANGE_16_235
                               : matrixOf(colorimetry.matrix).has_value();
}

}  // namespace

GstVideoColorimetry defaultColorimetry(Model model, int height) {
    GstVideoInfo info;
    gst_video_info_set_format(&info,
                              model == Model::rgb ? GST_VIDEO_FORMAT_BGRA : GST_VIDEO_FORMAT_UYVY,
                              2, static_cast<guint>(height));
    return info.colorimetry;
}

std::vector<std::string> spellingsOf(const GstVideoColorimetry& c) {
    std::vector<std::string> result;
    const std::unique_ptr<char, decltype(&g_free)> name(gst_video_colorimetry_to_string(&c),
                                                        g_free);
    if (name) {
        result.emplace_back(name.get());
    }
    std::string numbers = std::to_string(c.range) + ':' + std::to_string(c.matrix) + ':' +
                          std::to_string(c.transfer) + ':' + std::to_string(c.primaries);
    if (result.empty() || result.front() != numbers) {
        result.push_back(std::move(numbers));
    }
    return result;
}

std::optional<GstVideoColorimetry> declaredColorimetry(const char* text, Model model) {
    GstVideoColorimetry colorimetry;
    if (!text || !gst_video_colorimetry_from_string(&colorimetry, text)) {
        return std::nullopt;
    }
    if (model == Model::rgb) {
        colorimetry.matrix = GST_VIDEO_COLOR_MATRIX_RGB;
    } else if (colorimetry.matrix == GST_VIDEO_COLOR_MATRIX_RGB ||
               colorimetry.matrix == GST_VIDEO_COLOR_MATRIX_UNKNOWN) {
        return std::nullopt;
    }
    return colorimetry;
}

GstVideoColorimetry preferredColorimetry(const std::optional<GstVideoColorimetry>& declared,
                                         Model from, Model to, int height) {
    if (declared && from == to) {
        return *declared;
    }
    GstVideoColorimetry result = defaultColorimetry(to, height);
    if (declared) {
        result.transfer = declared->transfer;
        result.primaries = declared->primaries;
        if (to == Model::ycbcr && declared->primaries == GST_VIDEO_COLOR_PRIMARIES_BT2020) {
            result.matrix = GST_VIDEO_COLOR_MATRIX_BT2020;
        }
    }
    return result;
}

std::vector<GstVideoColorimetry>
convertibleColorimetries(const std::optional<GstVideoColorimetry>& declared, Model from, Model to,
                         int height) {
    std::vector<GstVideoColorimetry> result = {preferredColorimetry(declared, from, to, height)};
    const GstVideoColorimetry source = declared.value_or(defaultColorimetry(from, height));
    if (!isComputable(source, from)) {
        return from == to ? result : std::vector<GstVideoColorimetry>{};
    }
    const auto transfers = sameAs(source.transfer, declared.has_value(), customaryTransfers,
                                  {GST_VIDEO_TRANSFER_SMPTE2084, GST_VIDEO_TRANSFER_ARIB_STD_B67});
    const auto primaries = sameAs(source.primaries, declared.has_value(), customaryPrimaries,
                                  {GST_VIDEO_COLOR_PRIMARIES_BT2020});
    const auto add = [&](GstVideoColorRange range, GstVideoColorMatrix matrix) {
        for (const GstVideoTransferFunction transfer : transfers) {
            for (const GstVideoColorPrimaries primary : primaries) {
                result.push_back({range, matrix, transfer, primary});
            }
        }
    };
    if (to == Model::rgb) {
        add(GST_VIDEO_COLOR_RANGE_0_255, GST_VIDEO_COLOR_MATRIX_RGB);
        return result;
    }
    for (const MatrixName& matrix : matrices) {
        add(GST_VIDEO_COLOR_RANGE_16_235, matrix.gstreamer);
        add(GST_VIDEO_COLOR_RANGE_0_255, matrix.gstreamer);
    }
    return result;
}

bool isCosited(GstVideoChromaSite site) { return (site & GST_VIDEO_CHROMA_SITE_H_COSITED) != 0; }

std::optional<Options> optionsFor(const GstVideoInfo& source, const GstVideoInfo& destination,
                                  GstVideoChromaSite declaredSite, Chroma chroma) {
    Options options;
    const GstVideoColorimetry &from = source.colorimetry, &to = destination.colorimetry;
    const bool fromRgb = GST_VIDEO_INFO_IS_RGB(&source),
               toRgb = GST_VIDEO_INFO_IS_RGB(&destination);
    if (!fromRgb && declaredSite != GST_VIDEO_CHROMA_SITE_UNKNOWN) {
        // Of chroma in the middle of a pair, the pair's is the nearest to either pixel.
        options.chroma = isCosited(declaredSite) ? Chroma::cosited : Chroma::nearest;
    } else {
        options.chroma = chroma;
    }
    const bool moves =
        fromRgb == toRgb && from.matrix == to.matrix &&
        (fromRgb ? from.range == to.range : rangeOf(from.range) == rangeOf(to.range));
    options.srcRange = rangeOf(from.range);
    options.dstRange = rangeOf(to.range);
    if (moves) {
        return options;
    }
    if (!isComputable(from, fromRgb ? Model::rgb : Model::ycbcr) ||
        !isComputable(to, toRgb ? Model::rgb : Model::ycbcr)) {
        return std::nullopt;
    }
    options.srcMatrix = matrixOf(from.matrix).value_or(Matrix::bt709);
    options.dstMatrix = matrixOf(to.matrix).value_or(Matrix::bt709);
    return options;
}

}  // namespace orva::gst
