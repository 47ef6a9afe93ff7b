// The positional exports describe an image without pixels, whatever they are given.
#include "golden/exports.hpp"
#include "support/data.hpp"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(Positional, NothingIsWritten) {
    alignas(64) uint8_t src[4096] = {}, dst[4096], kept[4096];
    test::Random random(5);
    std::ranges::copy(test::runs(sizeof dst, random), dst);
    memcpy(kept, dst, sizeof dst);
    for (const int32_t pitch : {64, 96, 33, 0, -128}) {
        for (const int offset : {0, 3}) {
            for (const orva::golden::PositionalExport& conversion :
                 orva::golden::positionalExports())
                conversion.call(src, dst + offset, pitch);
        }
    }
    EXPECT_EQ(memcmp(dst, kept, sizeof dst), 0);
}

}  // namespace
