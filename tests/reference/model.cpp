// The scalar model's list of conversions, each with the choice of kernel as far as it shows.
#include "reference/model.hpp"

#include "reference/pixels.hpp"
#include "reference/rgb_to_yuv.hpp"
#include "reference/yuv_to_rgb.hpp"
#include "reference/yuv_to_yuv.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace reference {
namespace {

using Conversion = std::function<void(const Descriptor&)>;

// A kernel with its further arguments.
template <typename... Args>
Conversion run(void (*kernel)(const Descriptor&, Args...), std::type_identity_t<Args>... args) {
    return [=](const Descriptor& d) { kernel(d, args...); };
}

bool never(const Descriptor&) { return false; }
bool packedFast(const Descriptor& d) {
    return sourceAligned(d, 16, 8) && destinationAligned(d, 32, 4);
}
bool modesFast(const Descriptor& d) {
    return sourceAligned(d, 32, 4) && destinationAligned(d, 16, 8);
}
bool blocksOf16Fast(const Descriptor& d) { return destinationAligned(d, 16, 16); }

// One column per kernelMode; calling an empty one throws.
Conversion modes(const std::vector<Conversion>& columns) {
    return [=](const Descriptor& d) {
        const auto mode = static_cast<std::uint32_t>(d.kernelMode);
        columns.at(mode <= 4 ? mode : 0)(d);
    };
}
Conversion modesToBgr32(const YuvLayout& layout) {
    return modes({run(yuvToBgr, layout, FourthByte::constant, modesFast), run(reduceToBgr32, 2),
                  run(reduceToBgr32, 4)});
}
Conversion modesToYuv(const YuvLayout& layout) {
    return modes({run(bgrToYuv, 4, layout, AlphaPlane::no), run(reduceToYuv, layout, 2),
                  run(reduceToYuv, layout, 4), run(enlargeToYuv, layout)});
}

// The layouts that a conversion reads and writes; they need not be those of its name.
struct Reorder {
    YuvLayout from, to;
};
constexpr Reorder uyvyCopy{uyvy16, uyvy16}, yuyvCopy{yuyv16, yuyv16};
constexpr Reorder uyvyToYuyv{uyvy16, yuyv16}, yuyvToUyvy{yuyv16, uyvy16};
constexpr Reorder uyvyToUvyy{uyvy16, uvyy16}, uvyyToUyvy{uvyy16, uyvy16};
constexpr Reorder uyvyToPlanes{uyvy16, y8puv8};

void yuvToYuv(const Descriptor& d, const Reorder& fast, const Reorder& general,
              const Reorder& matrix) {
    const Reorder& equal = blocksOf16Fast(d) ? fast : general;
    if (d.srcColorSpace == d.dstColorSpace)
        reorderYuv(d, equal.from, equal.to);
    else
        convertMatrix(d, matrix.from, matrix.to);
}

void bgr24ToUvyy(const Descriptor& d) {
    if (d.streamingStores && destinationAligned(d, 16, 8))
        bgr24ToLumaWords(d);
    else
        bgrToYuv(d, 3, uvyy16, AlphaPlane::no);
}

using Pixel = const PixelPlaces&;
const std::map<std::string_view, Conversion> conversions = {
    {"A8P_A8P", run(movePixels, 1, 1, [](Pixel p) { p.copy(1); })},
    {"A8C_A8P", run(movePixels, 0, 1, [](Pixel p) { p.to[0] = p.alphaValue; })},

    {"BGR32I_A8P", run(movePixels, 4, 1, [](Pixel p) { p.to[0] = p.from[3]; })},
    {"BGR32I_BGR24IA8P", run(movePixels, 4, 3, [](Pixel p) { p.copy(3).toAlpha[0] = p.from[3]; })},
    {"BGR24IA8P_BGR32I", run(movePixels, 3, 4, [](Pixel p) { p.copy(3).to[3] = p.fromAlpha[0]; })},
    {"BGR32I_BGR32I", run(movePixels, 4, 4, [](Pixel p) { p.copy(4); })},
    {"BGR32I_BGR24I", run(movePixels, 4, 3, [](Pixel p) { p.copy(3); })},
    {"BGR24I_BGR32I", run(movePixels, 3, 4, [](Pixel p) { p.copy(3).to[3] = p.alphaValue; })},
    {"BGR24I_BGR24I", run(movePixels, 3, 3, [](Pixel p) { p.copy(3); })},

    {"UYVY16I_BGR32I", modesToBgr32(uyvy16)},
    {"Y8PUV8I_BGR32I", modesToBgr32(y8puv8)},
    {"YUYV16I_BGR32I", run(yuvToBgr, yuyv16, FourthByte::constant, packedFast)},
    {"UYVY16IA8P_BGR32I", run(yuvToBgr, uyvy16, FourthByte::plane, packedFast)},
    {"YUYV16IA8P_BGR32I", run(yuvToBgr, yuyv16, FourthByte::plane, packedFast)},
    {"Y8PUV8IA8P_BGR32I", run(yuvToBgr, y8puv8, FourthByte::plane, blocksOf16Fast)},
    {"Y8PUV8I_BGR24I", run(yuvToBgr, y8puv8, FourthByte::none, never)},
    {"UVYY16I_BGR24I", run(yuvToBgr, uvyy16, FourthByte::none, never)},
    {"YUYV16I_BGR24I", run(yuvToBgr, yuyv16, FourthByte::none, never)},
    {"UYVY16I_BGR24I", run(yuvToBgr, uyvy16, FourthByte::none, never)},

    {"BGR32I_UYVY16I", modesToYuv(uyvy16)},
    {"BGR32I_UVYY16I", modesToYuv(uvyy16)},
    {"BGR32I_Y8PUV8I", modesToYuv(y8puv8)},
    {"BGR32I_YUYV16I", run(bgrToYuv, 4, yuyv16, AlphaPlane::no)},
    {"BGR32I_YUYV16IA8P", run(bgrToYuv, 4, yuyv16, AlphaPlane::yes)},
    {"BGR32I_UYVY16IA8P", run(bgrToYuv, 4, uyvy16, AlphaPlane::yes)},
    {"BGR32I_UVYY16IA8P", run(bgrToYuv, 4, uvyy16, AlphaPlane::yes)},
    {"BGR32I_Y8PUV8IA8P", run(bgrToYuv, 4, y8puv8, AlphaPlane::yes)},
    {"BGR24I_YUYV16I", run(bgrToYuv, 3, yuyv16, AlphaPlane::no)},
    {"BGR24I_UYVY16I", run(bgrToYuv, 3, uyvy16, AlphaPlane::no)},
    {"BGR24I_UVYY16I", bgr24ToUvyy},
    {"BGR24I_Y8PUV8I", run(bgrToYuv, 3, y8puv8, AlphaPlane::no)},

    {"UYVY16I_UYVY16I", run(yuvToYuv, uyvyCopy, uyvyCopy, uyvyCopy)},
    {"YUYV16I_YUYV16I", run(yuvToYuv, yuyvCopy, yuyvCopy, yuyvCopy)},
    {"UYVY16I_YUYV16I", run(yuvToYuv, uyvyToYuyv, uyvyToYuyv, uyvyToYuyv)},
    {"YUYV16I_UYVY16I", run(yuvToYuv, yuyvToUyvy, yuyvToUyvy, yuyvToUyvy)},
    {"UVYY16I_UYVY16I", run(yuvToYuv, uvyyToUyvy, uyvyCopy, uyvyCopy)},
    {"UYVY16I_UVYY16I", run(yuvToYuv, uyvyToUvyy, uyvyCopy, uyvyCopy)},
    {"UYVY16I_Y8PUV8I", run(yuvToYuv, uyvyToPlanes, uyvyToPlanes, uyvyCopy)},
};

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
    const auto found = conversions.find(name);
    if (found != conversions.end())
        found->second(conversion);
    else if (composites.contains(name))
        composite(name, conversion);
    else
        return false;
    return true;
}

}  // namespace reference
