// The positional exports describe an image without pixels, whatever they are given.
#include "support/data.hpp"

#include <orva/orva.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Plain = void(ORVA_CALL*)(const void*, void*, int32_t, int32_t, int32_t, int32_t);
using WithAlpha = void(ORVA_CALL*)(const void*, void*, int32_t, int32_t, int32_t, int32_t, int32_t);

void call(WithAlpha f, const void* src, void* dst, int32_t pitch) {
    f(src, dst, pitch, 1080, 1, 1, 255);
}
void call(Plain f, const void* src, void* dst, int32_t pitch) { f(src, dst, pitch, 1080, 1, 1); }
void call(void(ORVA_CALL*)(const OrvaConversionDescriptor*), const void*, void*, int32_t) {}

TEST(Positional, NothingIsWritten) {
    alignas(64) uint8_t src[4096] = {}, dst[4096], kept[4096];
    test::Random random(5);
    std::ranges::copy(test::runs(sizeof dst, random), dst);
    memcpy(kept, dst, sizeof dst);
    for (const int32_t pitch : {64, 96, 33, 0, -128}) {
        for (const int offset : {0, 3}) {
#define ORVA_EXPORT_NAME(name) call(name, src, dst + offset, pitch);
#include "export_list.inc"
#undef ORVA_EXPORT_NAME
        }
    }
    EXPECT_EQ(memcmp(dst, kept, sizeof dst), 0);
}

}  // namespace
