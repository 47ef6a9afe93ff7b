// Planes that end where inaccessible memory begins, and planes that begin where it ends: a
// conversion that reads or writes one byte outside its planes does not survive this.
#include "support/guarded_pages.hpp"
#include "support/picture.hpp"
#include "support/tables.hpp"

#include <csignal>
#include <cstdlib>

using namespace orva;
using namespace test;

namespace {

char runningCase[256];

void reportFault(int) {
    fputs(runningCase, stderr);
    std::_Exit(1);
}

class CheckedGuardPages : public ::testing::TestWithParam<std::size_t> {};

TEST_P(CheckedGuardPages, NothingOutsideThePlanes) {
    signal(SIGSEGV, reportFault);
    const Format from = formats()[GetParam()].format;
    static const std::array<GuardedPages, planeCount> sourcePages, destinationPages;
    const auto place = [](auto& image, const auto& pages, std::uint32_t gap, bool atEnd) {
        for (const PlaneIndex p : planeIndices) {
            const auto row = std::uint32_t(rowBytes(image.format, p, image.width));
            const std::uint32_t size = row == 0 ? 0 : (row + gap) * (image.height - 1) + row;
            planeOf(image, p) = {{reinterpret_cast<std::byte*>(pages[p].place(size, atEnd)), size},
                                 std::ptrdiff_t(row + gap)};
        }
    };
    withEveryPictureTable([&] {
        for (const FormatInfo& to : formats()) {
            if (!canConvert(from, to.format)) {
                continue;
            }
            for (std::uint32_t width = 1; width <= 390; width += width == 134 ? 246 : 1) {
                for (int variant = 0; variant < 8; ++variant) {
                    const bool atEnd = variant & 1;
                    const std::uint32_t height = variant & 2 ? 1 : 2;
                    const Options options = {
                        .dstMatrix = width % 3 == 0 ? Matrix::bt709 : Matrix::bt601,
                        .chroma = width % 5 == 0 ? Chroma::nearest : Chroma::cosited,
                        .streaming = variant & 4 ? Streaming::always : Streaming::never};
                    ConstImageView source{from, width, height, {}, {}, {}, {}};
                    ImageView destination{to.format, width, height, {}, {}, {}, {}};
                    place(source, sourcePages, width % 7, atEnd);
                    place(destination, destinationPages, width % 4, atEnd);
                    snprintf(runningCase, sizeof runningCase,
                             "%s left its planes: %ux%u, at the %s, %s\n",
                             nameOf(from, to.format).c_str(), width, height,
                             atEnd ? "end" : "beginning", describe(options).c_str());
                    const Result result = convert(source, destination, options);
                    ASSERT_TRUE(result) << result.describe();
                }
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(All, CheckedGuardPages, ::testing::Range<std::size_t>(0, formats().size()),
                         [](const auto& info) { return std::string(formats()[info.param].name); });

}  // namespace
