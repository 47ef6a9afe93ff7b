// The DLLs' own stack protector, here in a program.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

extern "C" std::uintptr_t __stack_chk_guard;

namespace {

// Writes as many bytes into a place for eight.
[[gnu::noinline]] void overrun(std::size_t size) {
    [[maybe_unused]] volatile char text[8];
    for (std::size_t i = 0; i < size; ++i) {
        text[i] = 1;
    }
}

TEST(StackGuard, IsChosenAndEndsStrings) {
    EXPECT_GT(__stack_chk_guard, 0xffu);
    EXPECT_EQ(__stack_chk_guard & 0xff, 0u);
}

TEST(StackGuardDeathTest, OverrunEndsTheProcess) {
    overrun(8);
    EXPECT_EXIT(overrun(16), testing::ExitedWithCode(0xc0000409), "");
}

}  // namespace
