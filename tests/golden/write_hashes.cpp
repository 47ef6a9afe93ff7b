// Prints export_hashes.txt as the scalar model has it, or conversion_hashes.txt as the checked
// library has it; golden_test judges its frames by the model, which leaves the last rounding open.
#include "golden/conversion_cases.hpp"
#include "golden/export_cases.hpp"
#include "reference/model.hpp"

#include <cstdio>
#include <string_view>

using namespace orva::golden;

namespace {

void print(const std::string& name, uint64_t hash) {
    printf("%s %016llx\n", name.c_str(), static_cast<unsigned long long>(hash));
}

int writeExports() {
    fputs(
        R"(# What each export writes, as hashes that are the same on every build. The scalar model makes
# this file: write_hashes exports > export_hashes.txt
#
# A line is a conversion, a set of options and the hash of two frames: 112 x 6 pixels at 64-byte
# aligned addresses, then 110 x 5 pixels 8 bytes behind them, rows without gaps. The source is a buffer
# of 65536 bytes for the main planes and one of 1024 for the alpha plane, filled in this order with
# x >> 24 of x = x * 1664525 + 1013904223 (32 bits, starting from 1, anew for each frame); the
# destination is buffers of 16384 and 1024 bytes full of 0xA5. The hash is FNV-1a, 64 bits, over the
# destination buffers. alphaValue is 100. An option set is named by the source's and the destination's
# colour code, then fullRange, clampStudio and kernelMode where they are set; modes run with lineMode 1,
# mode 3 with twice the dstHeight and dstPitch and a dstRowGap of half that pitch. The positional
# exports are called once, and leave the destination as it is.
)",
        stdout);
    for (const Export& conversion : exports())
        for (const OptionSet& options : optionSets)
            if (exists(conversion, options))
                print(std::string(conversion.name) + " " + options.name,
                      hashOf(conversion, options,
                             [](const Export& e, const OrvaConversionDescriptor& d) {
                                 reference::convert(e.name, d);
                             }));
    exportMemory.fill();
    Fnv untouched;
    exportMemory.addTo(untouched);
    for (const PositionalExport& conversion : positionalExports())
        print(std::string(conversion.name) + " positional", untouched.value);
    return 0;
}

int writeConversions() {
    fputs(
        R"(# What the checked library makes of each pair of formats, as hashes that are the same on every
# build. It makes this file itself: write_hashes conversions > conversion_hashes.txt
#
# A line is a pair and the hash of eight frames: 131 x 3 pixels with four sets of options, then 192 x 2
# with the same. Rows of the source are filled, plane after plane, with x >> 24 of
# x = x * 1664525 + 1013904223 (32 bits, starting from 1, anew for each size), every second one with
# 96 + (x >> 26) instead. The options are
#   the defaults;
#   source BT.601 and full, destination BT.2020 and studio, nearest chroma, alpha 100;
#   source BT.2020 and studio, destination BT.601 and full, alpha 0, streaming always;
#   BT.709, both full, nearest chroma.
# The hash is FNV-1a, 64 bits, over the rows of the destinations, plane after plane.
)",
        stdout);
    for (const Pair& pair : pairs())
        print(pair.name(), hashOf(pair));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view list = argc == 2 ? argv[1] : "";
    if (list == "exports")
        return writeExports();
    if (list == "conversions")
        return writeConversions();
    fputs("write_hashes exports|conversions\n", stderr);
    return 2;
}
