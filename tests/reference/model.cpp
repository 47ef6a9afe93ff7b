// The scalar model's list of conversions, each with the choice of kernel as far as it shows.
#include "reference/model.hpp"

#include "reference/pixels.hpp"
#include "reference/yuv_to_rgb.hpp"

#include <functional>
#include <map>

namespace reference {
namespace {

using Conversion = std::function<void(const Descriptor&)>;

Conversion packedToBgr32(const YuvLayout& layout, AlphaSource alpha) {
    return [=](const Descriptor& d) {
        const bool fast = sourceAligned(d, 16, 8) && destinationAligned(d, 32, 4);
        yuvToBgr32(d, layout, alpha, fast);
    };
}

// Conversions that choose by kernelMode test the alignments of pitches and width the other way.
Conversion modesToBgr32(const YuvLayout& layout) {
    return [=](const Descriptor& d) {
        const bool fast = sourceAligned(d, 32, 4) && destinationAligned(d, 16, 8);
        yuvToBgr32(d, layout, AlphaSource::constant, fast);
    };
}

const std::map<std::string_view, Conversion>& conversions() {
    static const std::map<std::string_view, Conversion> table = {
        {"A8P_A8P", copyAlphaPlane},
        {"A8C_A8P", fillAlphaPlane},
        {"UYVY16I_BGR32I", modesToBgr32(uyvy16)},
        {"YUYV16I_BGR32I", packedToBgr32(yuyv16, AlphaSource::constant)},
        {"UYVY16IA8P_BGR32I", packedToBgr32(uyvy16, AlphaSource::plane)},
        {"YUYV16IA8P_BGR32I", packedToBgr32(yuyv16, AlphaSource::plane)},
    };
    return table;
}

}  // namespace

bool convert(std::string_view name, const OrvaConversionDescriptor& conversion) {
    const auto found = conversions().find(name);
    if (found == conversions().end())
        return false;
    found->second(conversion);
    return true;
}

}  // namespace reference
