// All exports, from their one list: those that take a descriptor, by what they convert, and the
// positional ones.
#pragma once

#include <orva/orva.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orva::golden {

struct Format {
    std::string_view main;  // "UYVY16I", ..., "A8P", "A8C"
    bool alphaPlane;        // an A8P plane beside it

    bool isPacked() const { return main.size() == 7 && main.substr(4) == "16I"; }
    bool isSemiPlanar() const { return main == "Y8PUV8I"; }
    bool isYuv() const { return isPacked() || isSemiPlanar(); }
    // Of the main plane, the luma plane if there are two.
    uint32_t bytesPerPixel() const {
        return isPacked() ? 2 : main == "BGR32I" ? 4 : main == "BGR24I" ? 3 : main == "A8C" ? 0 : 1;
    }
};

struct Export {
    std::string_view name;  // without "ORVA_SSE2_" and "_EX"
    Format source, destination;
    void(ORVA_CALL* call)(const OrvaConversionDescriptor*);
};

inline Format parseFormat(std::string_view name) {
    const bool alphaPlane = name.size() > 3 && name.ends_with("A8P");
    return {alphaPlane ? name.substr(0, name.size() - 3) : name, alphaPlane};
}

struct PositionalExport {
    using WithAlpha = void(ORVA_CALL*)(const void*, void*, int32_t, int32_t, int32_t, int32_t,
                                       int32_t);
    using Plain = void(ORVA_CALL*)(const void*, void*, int32_t, int32_t, int32_t, int32_t);

    std::string_view name;  // without "ORVA_SSE2_"
    std::variant<Plain, WithAlpha> function;

    void call(const void* src, void* dst, int32_t pitch) const {
        if (const auto* plain = std::get_if<Plain>(&function))
            (*plain)(src, dst, pitch, 1080, 1, 1);
        else
            std::get<WithAlpha>(function)(src, dst, pitch, 1080, 1, 1, 255);
    }
};

struct Exports {
    std::vector<Export> conversions;
    std::vector<PositionalExport> positional;

    void add(std::string_view name, void(ORVA_CALL* f)(const OrvaConversionDescriptor*)) {
        name = name.substr(10, name.size() - 13);
        const auto middle = name.find('_');
        conversions.push_back(
            {name, parseFormat(name.substr(0, middle)), parseFormat(name.substr(middle + 1)), f});
    }
    void add(std::string_view name,
             std::variant<PositionalExport::Plain, PositionalExport::WithAlpha> f) {
        positional.push_back({name.substr(10), f});
    }
};

inline const Exports& allExports() {
    static const Exports all = [] {
        Exports found;
#define ORVA_EXPORT_NAME(name) found.add(#name, name);
#include "export_list.inc"
#undef ORVA_EXPORT_NAME
        return found;
    }();
    return all;
}

inline const std::vector<Export>& exports() { return allExports().conversions; }
inline const std::vector<PositionalExport>& positionalExports() { return allExports().positional; }

}  // namespace orva::golden
