// The scalar model's list of conversions, each with the choice of kernel as far as it shows.
#include "reference/model.hpp"

#include "reference/pixels.hpp"
#include "reference/rgb_to_yuv.hpp"
#include "reference/yuv_to_rgb.hpp"
#include "reference/yuv_to_yuv.hpp"

#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

namespace reference {
namespace {

using Conversion = std::function<void(const Descriptor&)>;

Conversion pixels(int sourceBytes, int destinationBytes, void (*move)(const PixelPlaces&)) {
    return [=](const Descriptor& d) { movePixels(d, sourceBytes, destinationBytes, move); };
}

Conversion packedToBgr32(const YuvLayout& layout, AlphaSource alpha) {
    return [=](const Descriptor& d) {
        const bool fast = sourceAligned(d, 16, 8) && destinationAligned(d, 32, 4);
        yuvToBgr32(d, layout, alpha, fast);
    };
}

Conversion toBgr24(const YuvLayout& layout) {
    return [=](const Descriptor& d) { yuvToBgr24(d, layout); };
}

Conversion toYuv(int pixelBytes, const YuvLayout& layout, AlphaPlane alpha = AlphaPlane::no) {
    return [=](const Descriptor& d) { bgrToYuv(d, pixelBytes, layout, alpha); };
}

std::uint32_t modeOf(const Descriptor& d) {
    const auto mode = static_cast<std::uint32_t>(d.kernelMode);
    return mode <= 4 ? mode : 0;
}
[[noreturn]] void emptyMode() { throw std::invalid_argument("no kernel for this kernelMode"); }

// Against packedToBgr32, conversions with modes test pitches and width the other way around.
Conversion bgr32WithModes(const YuvLayout& layout) {
    return [=](const Descriptor& d) {
        const bool fast = sourceAligned(d, 32, 4) && destinationAligned(d, 16, 8);
        switch (modeOf(d)) {
        case 0:
            return yuvToBgr32(d, layout, AlphaSource::constant, fast);
        case 1:
            return reduceToBgr32(d, 2);
        case 2:
            return reduceToBgr32(d, 4);
        default:
            emptyMode();
        }
    };
}

Conversion yuvWithModes(const YuvLayout& layout) {
    return [=](const Descriptor& d) {
        switch (modeOf(d)) {
        case 0:
            return bgrToYuv(d, 4, layout, AlphaPlane::no);
        case 1:
            return reduceToYuv(d, layout, 2);
        case 2:
            return reduceToYuv(d, layout, 4);
        case 3:
            return enlargeToYuv(d, layout);
        default:
            emptyMode();
        }
    };
}

// The layouts that a conversion reads and writes; they need not be those of its name.
struct Reorder {
    YuvLayout from, to;
};
constexpr Reorder uyvyCopy{uyvy16, uyvy16}, yuyvCopy{yuyv16, yuyv16};
constexpr Reorder uyvyToYuyv{uyvy16, yuyv16}, yuyvToUyvy{yuyv16, uyvy16};
constexpr Reorder uyvyToUvyy{uyvy16, uvyy16}, uvyyToUyvy{uvyy16, uyvy16};
constexpr Reorder uyvyToPlanes{uyvy16, y8puv8};

Conversion yuvToYuv(const Reorder& fast, const Reorder& general, const Reorder& matrix) {
    return [=](const Descriptor& d) {
        const Reorder& equal = destinationAligned(d, 16, 16) ? fast : general;
        if (d.srcColorSpace == d.dstColorSpace)
            reorderYuv(d, equal.from, equal.to);
        else
            convertMatrix(d, matrix.from, matrix.to);
    };
}

void bgr24ToUvyy(const Descriptor& d) {
    if (d.streamingStores && destinationAligned(d, 16, 8))
        bgr24ToLumaWords(d);
    else
        bgrToYuv(d, 3, uvyy16, AlphaPlane::no);
}

const std::map<std::string_view, Conversion>& conversions() {
    using Pixel = const PixelPlaces&;
    static const std::map<std::string_view, Conversion> table = {
        {"A8P_A8P", pixels(1, 1, [](Pixel p) { p.copy(1); })},
        {"A8C_A8P", pixels(0, 1, [](Pixel p) { p.to[0] = p.alphaValue; })},

        {"BGR32I_A8P", pixels(4, 1, [](Pixel p) { p.to[0] = p.from[3]; })},
        {"BGR32I_BGR24IA8P", pixels(4, 3, [](Pixel p) { p.copy(3).toAlpha[0] = p.from[3]; })},
        {"BGR24IA8P_BGR32I", pixels(3, 4, [](Pixel p) { p.copy(3).to[3] = p.fromAlpha[0]; })},
        {"BGR32I_BGR32I", pixels(4, 4, [](Pixel p) { p.copy(4); })},
        {"BGR32I_BGR24I", pixels(4, 3, [](Pixel p) { p.copy(3); })},
        {"BGR24I_BGR32I", pixels(3, 4, [](Pixel p) { p.copy(3).to[3] = p.alphaValue; })},
        {"BGR24I_BGR24I", pixels(3, 3, [](Pixel p) { p.copy(3); })},

        {"UYVY16I_BGR32I", bgr32WithModes(uyvy16)},
        {"Y8PUV8I_BGR32I", bgr32WithModes(y8puv8)},
        {"YUYV16I_BGR32I", packedToBgr32(yuyv16, AlphaSource::constant)},
        {"UYVY16IA8P_BGR32I", packedToBgr32(uyvy16, AlphaSource::plane)},
        {"YUYV16IA8P_BGR32I", packedToBgr32(yuyv16, AlphaSource::plane)},
        {"Y8PUV8IA8P_BGR32I",
         [](const Descriptor& d) {
             yuvToBgr32(d, y8puv8, AlphaSource::plane, destinationAligned(d, 16, 16));
         }},
        {"Y8PUV8I_BGR24I", toBgr24(y8puv8)},
        {"UVYY16I_BGR24I", toBgr24(uvyy16)},
        {"YUYV16I_BGR24I", toBgr24(yuyv16)},
        {"UYVY16I_BGR24I", toBgr24(uyvy16)},

        {"BGR32I_UYVY16I", yuvWithModes(uyvy16)},
        {"BGR32I_UVYY16I", yuvWithModes(uvyy16)},
        {"BGR32I_Y8PUV8I", yuvWithModes(y8puv8)},
        {"BGR32I_YUYV16I", toYuv(4, yuyv16)},
        {"BGR32I_YUYV16IA8P", toYuv(4, yuyv16, AlphaPlane::yes)},
        {"BGR32I_UYVY16IA8P", toYuv(4, uyvy16, AlphaPlane::yes)},
        {"BGR32I_UVYY16IA8P", toYuv(4, uvyy16, AlphaPlane::yes)},
        {"BGR32I_Y8PUV8IA8P", toYuv(4, y8puv8, AlphaPlane::yes)},
        {"BGR24I_YUYV16I", toYuv(3, yuyv16)},
        {"BGR24I_UYVY16I", toYuv(3, uyvy16)},
        {"BGR24I_UVYY16I", bgr24ToUvyy},
        {"BGR24I_Y8PUV8I", toYuv(3, y8puv8)},

        {"UYVY16I_UYVY16I", yuvToYuv(uyvyCopy, uyvyCopy, uyvyCopy)},
        {"YUYV16I_YUYV16I", yuvToYuv(yuyvCopy, yuyvCopy, yuyvCopy)},
        {"UYVY16I_YUYV16I", yuvToYuv(uyvyToYuyv, uyvyToYuyv, uyvyToYuyv)},
        {"YUYV16I_UYVY16I", yuvToYuv(yuyvToUyvy, yuyvToUyvy, yuyvToUyvy)},
        {"UVYY16I_UYVY16I", yuvToYuv(uvyyToUyvy, uyvyCopy, uyvyCopy)},
        {"UYVY16I_UVYY16I", yuvToYuv(uyvyToUvyy, uyvyCopy, uyvyCopy)},
        {"UYVY16I_Y8PUV8I", yuvToYuv(uyvyToPlanes, uyvyToPlanes, uyvyCopy)},
    };
    return table;
}

// Conversions made of a colour step, named alike without the alpha planes, and an alpha step.
const std::set<std::string_view> composites = {
    "Y8PUV8I_BGR24IA8P",    "UVYY16I_UYVY16IA8P",    "UVYY16I_BGR24IA8P",
    "YUYV16I_YUYV16IA8P",   "YUYV16I_UYVY16IA8P",    "YUYV16I_BGR24IA8P",
    "UYVY16I_YUYV16IA8P",   "UYVY16I_Y8PUV8IA8P",    "UYVY16I_UYVY16IA8P",
    "UYVY16I_UVYY16IA8P",   "UYVY16I_BGR24IA8P",     "BGR24I_YUYV16IA8P",
    "BGR24I_Y8PUV8IA8P",    "BGR24I_UYVY16IA8P",     "BGR24I_UVYY16IA8P",
    "BGR24I_BGR24IA8P",     "YUYV16IA8P_YUYV16IA8P", "YUYV16IA8P_UYVY16IA8P",
    "YUYV16IA8P_BGR24IA8P", "UYVY16IA8P_YUYV16IA8P", "UYVY16IA8P_UYVY16IA8P",
    "UYVY16IA8P_BGR24IA8P", "BGR24IA8P_YUYV16IA8P",  "BGR24IA8P_Y8PUV8IA8P",
    "BGR24IA8P_UYVY16IA8P", "BGR24IA8P_UVYY16IA8P",  "BGR24IA8P_BGR24IA8P",
    "UYVY16IA8P_A8P",       "YUYV16IA8P_A8P",        "BGR24IA8P_A8P",
};

void composite(std::string_view name, const Descriptor& caller) {
    const std::string from(name.substr(0, name.find('_'))), to(name.substr(name.find('_') + 1));
    const bool fill = !from.ends_with("A8P");
    Descriptor alpha = caller;
    alpha.srcData = fill ? nullptr : caller.srcPlane2Data;
    alpha.srcPitch = fill ? 0 : caller.srcPlane2Pitch;
    alpha.srcRowGap = fill ? 0 : caller.srcPlane2RowGap;
    if (to != "A8P") {
        const auto colour = [](const std::string& format) {
            return format.substr(0, format.find("A8P"));
        };
        convert(colour(from) + "_" + colour(to), caller);
        alpha.dstData = caller.dstPlane2Data;
        alpha.dstPitch = caller.dstPlane2Pitch;
        alpha.dstRowGap = caller.dstPlane2RowGap;
    }
    convert(fill ? "A8C_A8P" : "A8P_A8P", alpha);
}

}  // namespace

bool convert(std::string_view name, const OrvaConversionDescriptor& conversion) {
    const auto found = conversions().find(name);
    if (found != conversions().end())
        found->second(conversion);
    else if (composites.contains(name))
        composite(name, conversion);
    else
        return false;
    return true;
}

}  // namespace reference
