// The frames and option sets of export_hashes.txt, which says how they are made.
#pragma once

#include "golden/exports.hpp"
#include "golden/fnv.hpp"

#include <cstring>

namespace orva::golden {

struct OptionSet {
    const char* name;
    int32_t srcColorSpace, dstColorSpace;
    uint8_t fullRange, clampStudio;
    int32_t kernelMode;
};

inline constexpr OptionSet optionSets[] = {
    {"11", 1, 1, 0, 0, 0},
    {"00-full-clamp", 0, 0, 1, 1, 0},
    {"10", 1, 0, 0, 0, 0},
    {"01-clamp", 0, 1, 0, 1, 0},
    {"11-mode1", 1, 1, 0, 0, 1},
    {"00-mode2", 0, 0, 0, 0, 2},
    {"11-full-mode3", 1, 1, 1, 0, 3},
};

// Only some exports have kernel modes.
inline bool exists(const Export& conversion, const OptionSet& options) {
    if (options.kernelMode == 0)
        return true;
    for (const std::string_view name : {"UYVY16I_BGR32I", "Y8PUV8I_BGR32I"})
        if (conversion.name == name)
            return options.kernelMode < 3;
    for (const std::string_view name : {"BGR32I_UYVY16I", "BGR32I_UVYY16I", "BGR32I_Y8PUV8I"})
        if (conversion.name == name)
            return true;
    return false;
}

// The memory that all cases use one after another.
struct ExportMemory {
    alignas(64) uint8_t src[65536], srcAlpha[1024], dst[16384], dstAlpha[1024];

    void fill() {
        uint32_t x = 1;
        for (uint8_t& byte : src)
            byte = uint8_t((x = x * 1664525 + 1013904223) >> 24);
        for (uint8_t& byte : srcAlpha)
            byte = uint8_t((x = x * 1664525 + 1013904223) >> 24);
        memset(dst, 0xA5, sizeof dst);
        memset(dstAlpha, 0xA5, sizeof dstAlpha);
    }
    void addTo(Fnv& hash) const {
        hash.add(dst, sizeof dst);
        hash.add(dstAlpha, sizeof dstAlpha);
    }
};
inline ExportMemory exportMemory;

template <class Convert>
uint64_t hashOf(const Export& conversion, const OptionSet& options, Convert convert) {
    struct Frame {
        uint32_t width, height, offset;
    };
    auto& [src, srcAlpha, dst, dstAlpha] = exportMemory;
    Fnv hash;
    for (const Frame& frame : {Frame{112, 6, 0}, Frame{110, 5, 8}}) {
        exportMemory.fill();
        const bool doubled = options.kernelMode == 3;
        OrvaConversionDescriptor d{};
        d.srcData = src + frame.offset;
        d.srcPlane2Data = srcAlpha + frame.offset;
        d.dstData = dst + frame.offset;
        d.dstPlane2Data = dstAlpha + frame.offset;
        d.dstWidth = frame.width;
        d.srcHeight = frame.height;
        d.dstHeight = frame.height * (doubled ? 2 : 1);
        d.srcPitch = int32_t(frame.width * conversion.source.bytesPerPixel());
        d.dstPitch = int32_t(frame.width * conversion.destination.bytesPerPixel());
        d.srcPlane2Pitch = d.dstPlane2Pitch = int32_t(frame.width);
        if (doubled) {
            d.dstRowGap = d.dstPitch;
            d.dstPitch *= 2;
        }
        d.srcColorSpace = options.srcColorSpace;
        d.dstColorSpace = options.dstColorSpace;
        d.fullRange = options.fullRange;
        d.clampStudio = options.clampStudio;
        d.kernelMode = options.kernelMode;
        d.lineMode = options.kernelMode != 0;
        d.alphaValue = 100;
        convert(conversion, d);
        exportMemory.addTo(hash);
    }
    return hash.value;
}

inline uint64_t hashOf(const PositionalExport& conversion) {
    exportMemory.fill();
    conversion.call(exportMemory.src, exportMemory.dst, 224);
    Fnv hash;
    exportMemory.addTo(hash);
    return hash.value;
}

}  // namespace orva::golden
