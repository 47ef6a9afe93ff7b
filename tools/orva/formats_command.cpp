// orva formats: which formats and conversions there are.
#include "commands.hpp"
#include "raw_frames.hpp"

#include <cstdio>

namespace orva::tool {

void runFormats() {
    std::puts("Formats, the bits of a sample, the bytes of a 1920x1080 frame, other names:");
    for (const FormatInfo& info : formats()) {
        if (inFiles(info.format)) {
            std::printf("  %-12.*s %2d %8llu%s%.*s\n", static_cast<int>(info.name.size()),
                        info.name.data(), info.bits,
                        static_cast<unsigned long long>(rawFrameBytes(info.format, {1920, 1080})),
                        info.otherNames.empty() ? "" : "  ",
                        static_cast<int>(info.otherNames.size()), info.otherNames.data());
        }
    }
    std::puts(
        "\nA raw file holds a frame's main plane, then those of its chroma, Cr and alpha. In V210\n"
        "a row is a multiple of 128 bytes.\n"
        "\nEvery format converts to every other, with two exceptions: alpha alone (A8P) does not\n"
        "become colour, and colour without alpha does not become A8P. A8C, the same alpha for\n"
        "every pixel, is a source of A8P in the library; no file holds it.");
}

}  // namespace orva::tool
