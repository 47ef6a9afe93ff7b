// All conversions under test, from the one list of exports.
#pragma once

#include <orva/orva.h>

#include <string>
#include <string_view>
#include <vector>

namespace test {

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

template <class Function>
void addExport(std::vector<Export>& list, std::string_view name, Function f) {
    if constexpr (std::is_same_v<Function, void(ORVA_CALL*)(const OrvaConversionDescriptor*)>) {
        name = name.substr(10, name.size() - 13);
        const auto middle = name.find('_');
        list.push_back(
            {name, parseFormat(name.substr(0, middle)), parseFormat(name.substr(middle + 1)), f});
    }
}

inline const std::vector<Export>& exports() {
    static const std::vector<Export> list = [] {
        std::vector<Export> found;
#define ORVA_EXPORT_NAME(name) addExport(found, #name, name);
#include "export_list.inc"
#undef ORVA_EXPORT_NAME
        return found;
    }();
    return list;
}

}  // namespace test
