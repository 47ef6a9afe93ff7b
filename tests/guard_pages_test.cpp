// Planes that end where inaccessible memory begins, and planes that begin where it ends: a
// conversion that reads or writes one byte outside its planes does not survive this.
#include "golden/exports.hpp"
#include "support/guarded_pages.hpp"
#include "support/tables.hpp"

#include <csignal>
#include <cstdlib>

namespace test {
namespace {

using orva::golden::Export;
using orva::golden::exports;
using orva::golden::Format;

struct GuardPages : testing::TestWithParam<Export> {};

char runningCase[256];

void reportFault(int) {
    fputs(runningCase, stderr);
    std::_Exit(1);
}

void call(const Export& conversion, const OrvaConversionDescriptor& d, bool atEnd) {
    snprintf(runningCase, sizeof runningCase,
             "%.*s left its planes: width %u, height %u, mode %d, %s, streaming %d\n",
             int(conversion.name.size()), conversion.name.data(), d.dstWidth, d.srcHeight,
             d.kernelMode, atEnd ? "at the end" : "at the beginning", d.streamingStores);
    conversion.call(&d);
}

// Of all planes, without the gap behind the last row.
uint32_t imageBytes(const Format& format, const OrvaConversionDescriptor& d, int32_t gap) {
    const int32_t row = int32_t(d.dstWidth * format.bytesPerPixel());
    return uint32_t((row + gap) * int32_t(d.srcHeight) * (format.isSemiPlanar() ? 2 : 1) - gap);
}

TEST_P(GuardPages, NothingOutsideThePlanes) {
    signal(SIGSEGV, reportFault);
    const Export& conversion = GetParam();
    GuardedPages src, srcAlpha, dst, dstAlpha;
    const bool pairs = conversion.source.isYuv() || conversion.destination.isYuv();
    withEveryTable([&] {
        for (uint32_t width = 0; width <= 200; width += pairs ? 2 : 1) {
            for (int variant = 0; variant < 24; ++variant) {
                const bool atEnd = variant & 1;
                // Keeps the fast kernel's pitches what they are.
                const int32_t gap = variant < 16 ? 0 : 96;
                OrvaConversionDescriptor d{};
                d.dstWidth = width;
                d.srcHeight = d.dstHeight = variant < 8 ? 1 : 2;
                d.streamingStores = variant & 2;
                d.srcColorSpace = variant & 4;
                d.srcRowGap = d.dstRowGap = d.srcPlane2RowGap = d.dstPlane2RowGap = gap;
                // With different colour codes the split writes packed samples, no more bytes.
                d.srcPitch = int32_t(width * conversion.source.bytesPerPixel()) + gap;
                d.dstPitch = int32_t(width * conversion.destination.bytesPerPixel()) + gap;
                d.srcPlane2Pitch = d.dstPlane2Pitch = int32_t(width) + gap;
                const uint32_t alphaBytes =
                    uint32_t((int32_t(width) + gap) * int32_t(d.srcHeight) - gap);
                d.srcData = src.place(imageBytes(conversion.source, d, gap), atEnd);
                d.srcPlane2Data = srcAlpha.place(alphaBytes, atEnd);
                d.dstData = dst.place(imageBytes(conversion.destination, d, gap), atEnd);
                d.dstPlane2Data = dstAlpha.place(alphaBytes, atEnd);
                call(conversion, d, atEnd);
            }
        }
    });
}

// One row of the reducing modes, which take every step-th dword of the source. A row that ends in
// single pairs ends with the last of these, one that ends in a block with the dwords it passes
// over.
TEST(GuardPagesOfModes, Reduction) {
    signal(SIGSEGV, reportFault);
    GuardedPages src, dst;
    withEveryTable([&] {
        for (const Export& conversion : exports()) {
            const std::string_view name = conversion.name;
            const bool toBgr = name == "UYVY16I_BGR32I" || name == "Y8PUV8I_BGR32I";
            if (!toBgr && name != "BGR32I_UYVY16I" && name != "BGR32I_UVYY16I" &&
                name != "BGR32I_Y8PUV8I")
                continue;
            for (uint32_t width = 2; width <= 100; width += 2) {
                for (int variant = 0; variant < 4; ++variant) {
                    OrvaConversionDescriptor d{};
                    d.kernelMode = 1 + (variant & 1);
                    d.streamingStores = variant & 2;
                    d.dstWidth = width;
                    d.srcHeight = d.dstHeight = 1;
                    d.dstPitch = int32_t(width * conversion.destination.bytesPerPixel());
                    const uint32_t step = uint32_t(d.kernelMode) * (toBgr ? 1 : 2);
                    const bool endsInBlock = width % 8 == 0 && width >= (toBgr ? 8u : 16u);
                    const uint32_t unread = endsInBlock ? 0 : step - 1;
                    d.srcData = src.place(4 * (width * step - unread), true);
                    d.dstData = dst.place(imageBytes(conversion.destination, d, 0), false);
                    call(conversion, d, true);
                }
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(All, GuardPages, testing::ValuesIn(exports()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace test
