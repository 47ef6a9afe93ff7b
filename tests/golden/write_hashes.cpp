// Prints hashes.txt as the scalar model has it.
#include "golden/hashes.hpp"
#include "reference/model.hpp"

#include <cstdio>

int main() {
    fputs(
        R"(# What each conversion writes, as hashes that are the same on every build. The scalar model makes
# this file: write_hashes > hashes.txt
#
# A line is a conversion, a set of options and the hash of two frames: 112 x 6 pixels at 64-byte
# aligned addresses, then 110 x 5 pixels 8 bytes behind them, rows without gaps. The source is a buffer
# of 65536 bytes for the main planes and one of 1024 for the alpha plane, filled in this order with
# x >> 24 of x = x * 1664525 + 1013904223 (32 bits, starting from 1, anew for each frame); the
# destination is buffers of 16384 and 1024 bytes full of 0xA5. The hash is FNV-1a, 64 bits, over the
# destination buffers. alphaValue is 100. An option set is named by the source's and the destination's
# colour code, then fullRange, clampStudio and kernelMode where they are set; modes run with lineMode 1,
# mode 3 with twice the dstHeight and dstPitch and a dstRowGap of half that pitch.
)",
        stdout);
    for (const test::Export& conversion : test::exports())
        for (const test::OptionSet& options : test::optionSets)
            if (exists(conversion, options))
                printf("%s %s %016llx\n", std::string(conversion.name).c_str(), options.name,
                       static_cast<unsigned long long>(
                           hashOf(conversion, options,
                                  [](const test::Export& e, const OrvaConversionDescriptor& d) {
                                      reference::convert(e.name, d);
                                  })));
}
