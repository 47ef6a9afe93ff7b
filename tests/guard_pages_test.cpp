// Planes that end where inaccessible memory begins, and planes that begin where it ends: a
// conversion that reads or writes one byte outside its planes does not survive this.
#include "support/exports.hpp"
#include "support/guarded_pages.hpp"
#include "support/tables.hpp"

#include <csignal>
#include <cstdlib>

namespace test {
namespace {

struct GuardPages : testing::TestWithParam<Export> {};

char runningCase[256];

void reportFault(int) {
    fputs(runningCase, stderr);
    std::_Exit(1);
}

uint32_t planeBytes(const Format& format, uint32_t pixels) {
    return pixels * format.bytesPerPixel() * (format.isSemiPlanar() ? 2 : 1);
}

TEST_P(GuardPages, NothingOutsideThePlanes) {
    signal(SIGSEGV, reportFault);
    const Export& conversion = GetParam();
    GuardedPages src, srcAlpha, dst, dstAlpha;
    const bool pairs = conversion.source.isYuv() || conversion.destination.isYuv();
    withEveryTable([&] {
        for (uint32_t width = 0; width <= 200; width += pairs ? 2 : 1) {
            for (int variant = 0; variant < 16; ++variant) {
                const bool atEnd = variant & 1;
                OrvaConversionDescriptor d{};
                d.dstWidth = width;
                d.srcHeight = d.dstHeight = 1 + (variant >> 3);
                d.streamingStores = variant & 2;
                d.srcColorSpace = variant & 4;
                // With different colour codes the split writes packed samples, as many bytes.
                d.srcPitch = int32_t(width * conversion.source.bytesPerPixel());
                d.dstPitch = int32_t(width * conversion.destination.bytesPerPixel());
                const uint32_t pixels = width * d.srcHeight;
                d.srcData = src.place(planeBytes(conversion.source, pixels), atEnd);
                d.srcPlane2Data = srcAlpha.place(pixels, atEnd);
                d.dstData = dst.place(planeBytes(conversion.destination, pixels), atEnd);
                d.dstPlane2Data = dstAlpha.place(pixels, atEnd);
                d.srcPlane2Pitch = d.dstPlane2Pitch = int32_t(width);
                snprintf(runningCase, sizeof runningCase,
                         "%.*s left its planes: width %u, height %u, %s, streaming %d\n",
                         int(conversion.name.size()), conversion.name.data(), width, d.srcHeight,
                         atEnd ? "at the end" : "at the beginning", d.streamingStores);
                conversion.call(&d);
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(All, GuardPages, testing::ValuesIn(exports()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace test
