// What callers on x86 find as they left it, and what they need not care for.
#include "golden/exports.hpp"
#include "support/tables.hpp"

#include <cstring>
#include <span>

#include <xmmintrin.h>

namespace test {
namespace {

using orva::golden::Export;
using orva::golden::exports;

// One row of pixels in every plane, enough for all conversions.
template <class Call> void callEveryConversion(const Call& call) {
    alignas(64) static uint8_t src[8192], srcAlpha[8192], dst[8192], dstAlpha[8192];
    for (const Export& conversion : exports()) {
        for (const uint32_t width : {96u, 70u}) {
            for (int flags = 0; flags < 8; ++flags) {
                OrvaConversionDescriptor d{};
                d.srcData = src;
                d.srcPlane2Data = srcAlpha;
                d.dstData = dst;
                d.dstPlane2Data = dstAlpha;
                d.dstWidth = width;
                d.srcHeight = d.dstHeight = 1;
                d.srcPitch = d.dstPitch = d.dstPlane2Pitch = 96;
                d.streamingStores = flags & 1;
                d.clampStudio = flags & 2;
                d.srcColorSpace = flags & 4;
                call(conversion, &d);
            }
        }
    }
}

TEST(FloatingPointControl, IsKept) {
    const uint32_t kept = _mm_getcsr();
    // Everything masked, and nothing else as it is by default: rounding upwards, denormals as zero,
    // flushed to zero, one exception seen.
    static constexpr uint32_t unusual = 0x1F80 | 0x4000 | 0x0040 | 0x8000 | 0x0020;
    withEveryTable([] {
        callEveryConversion([](const Export& conversion, const OrvaConversionDescriptor* d) {
            _mm_setcsr(unusual);
            conversion.call(d);
            EXPECT_EQ(_mm_getcsr(), unusual) << conversion.name;
        });
    });
    _mm_setcsr(kept);
}

#if defined(_WIN64)

// Windows' callers keep values in these registers over a call.
TEST(VectorRegisters, Xmm6To15AreKept) {
    withEveryTable([] {
        callEveryConversion([](const Export& conversion, const OrvaConversionDescriptor* d) {
            uint8_t before[10][16], after[10][16];
            memset(after, 0, sizeof after);
            for (uint8_t& byte : std::span(before[0], sizeof before))
                byte = uint8_t(&byte - before[0] + 1);
            const void *const from = before, *const to = after;
            // Arguments: in rcx, with 32 bytes of the stack for the callee.
            asm volatile("movdqu 0(%[from]), %%xmm6\n\t"
                         "movdqu 16(%[from]), %%xmm7\n\t"
                         "movdqu 32(%[from]), %%xmm8\n\t"
                         "movdqu 48(%[from]), %%xmm9\n\t"
                         "movdqu 64(%[from]), %%xmm10\n\t"
                         "movdqu 80(%[from]), %%xmm11\n\t"
                         "movdqu 96(%[from]), %%xmm12\n\t"
                         "movdqu 112(%[from]), %%xmm13\n\t"
                         "movdqu 128(%[from]), %%xmm14\n\t"
                         "movdqu 144(%[from]), %%xmm15\n\t"
                         "movq %%rsp, %%rbx\n\t"
                         "andq $-16, %%rsp\n\t"
                         "subq $32, %%rsp\n\t"
                         "call *%[call]\n\t"
                         "movq %%rbx, %%rsp\n\t"
                         "movdqu %%xmm6, 0(%[to])\n\t"
                         "movdqu %%xmm7, 16(%[to])\n\t"
                         "movdqu %%xmm8, 32(%[to])\n\t"
                         "movdqu %%xmm9, 48(%[to])\n\t"
                         "movdqu %%xmm10, 64(%[to])\n\t"
                         "movdqu %%xmm11, 80(%[to])\n\t"
                         "movdqu %%xmm12, 96(%[to])\n\t"
                         "movdqu %%xmm13, 112(%[to])\n\t"
                         "movdqu %%xmm14, 128(%[to])\n\t"
                         "movdqu %%xmm15, 144(%[to])"
                         : "+c"(d)
                         : [from] "S"(from), [to] "D"(to), [call] "r"(conversion.call)
                         : "rax", "rbx", "rdx", "r8", "r9", "r10", "r11", "xmm0", "xmm1", "xmm2",
                           "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9", "xmm10", "xmm11",
                           "xmm12", "xmm13", "xmm14", "xmm15", "memory", "cc");
            EXPECT_EQ(memcmp(before, after, sizeof before), 0) << conversion.name;
        });
    });
}

#endif

#if defined(__i386__)

// 32-bit hosts may call with a stack that is aligned to 4 bytes only: `past` bytes beyond a 16-byte
// boundary.
void callWithStack(uint32_t past, const Export& conversion, const OrvaConversionDescriptor* d) {
    void* keptStack;
    asm volatile("movl %%esp, %0\n\t"
                 "andl $-64, %%esp\n\t"
                 "subl %3, %%esp\n\t"
                 "pushl %1\n\t"
                 "call *%2\n\t"
                 "movl %0, %%esp"
                 : "=&b"(keptStack), "+a"(d)
                 : "S"(conversion.call), "D"(16 - past)
                 : "ecx", "edx", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7",
                   "memory", "cc");
}

TEST(StackAlignment, AnyMultipleOfFourWillDo) {
    withEveryTable([] {
        callEveryConversion([](const Export& conversion, const OrvaConversionDescriptor* d) {
            for (const uint32_t past : {0u, 4u, 8u, 12u})
                callWithStack(past, conversion, d);
        });
    });
}

#endif

}  // namespace
}  // namespace test
