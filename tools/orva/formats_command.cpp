// orva formats: which formats and conversions there are.
#include "commands.hpp"

#include <cstdio>
#include <string>

namespace orva::tool {
namespace {

// All but the constant alpha, which has no planes.
bool inFiles(const FormatInfo& info) { return info.bytesPerPixel > 0; }

}  // namespace

void runFormats() {
    std::puts("Formats, their other names and the bytes of a pixel in a raw file:");
    for (const FormatInfo& info : formats()) {
        if (!inFiles(info)) {
            continue;
        }
        std::printf("  %-11.*s %-22.*s %llu\n", static_cast<int>(info.name.size()),
                    info.name.data(), static_cast<int>(info.otherNames.size()),
                    info.otherNames.data(),
                    static_cast<unsigned long long>(rawFrameBytes(info.format, {1, 1})));
    }
    std::puts(
        "\nA raw file holds a frame's main plane, then its chroma plane, then its alpha plane.\n"
        "\nConversions:");
    for (const FormatInfo& source : formats()) {
        if (!inFiles(source)) {
            continue;
        }
        std::string destinations;
        for (const FormatInfo& destination : formats()) {
            if (canConvert(source.format, destination.format)) {
                destinations += ' ';
                destinations += destination.name;
            }
        }
        if (!destinations.empty()) {
            std::printf("  %-11.*s to%s\n", static_cast<int>(source.name.size()),
                        source.name.data(), destinations.c_str());
        }
    }
}

}  // namespace orva::tool
