/* A 32-bit host that keeps its stack at multiples of 4 bytes only, as many compilers did, calls
 * every conversion of the shared library so. */
#include <orva/orva.h>

#include <stdio.h>
#include <string.h>

typedef void (*Function)(void);

/* Calls with the stack pointer `past` bytes beyond a 16-byte boundary. */
static __attribute__((noinline)) void callWithStack(int past, Function function,
                                                    const OrvaConversionDescriptor* conversion) {
    void* keptStack;
    int lowered = 16 - past;
    __asm__ volatile("movl %%esp, %0\n\t"
                     "andl $-64, %%esp\n\t"
                     "subl %3, %%esp\n\t"
                     "pushl %1\n\t"
                     "call *%2\n\t"
                     "movl %0, %%esp"
                     : "=&b"(keptStack), "+a"(conversion)
                     : "S"(function), "D"(lowered)
                     : "ecx", "edx", "memory", "cc");
}

int main(void) {
    static uint8_t memory[4][4096 + 15];
    uint8_t *planes[4], aligned[2][4096];
    const struct {
        const char* name;
        Function function;
    } exports[] = {
#define ORVA_EXPORT_NAME(name) {#name, (Function)name},
#include "export_list.inc"
    };
    int calls = 0;
    for (int i = 0; i < 4; ++i)
        planes[i] = memory[i] + (16 - (uintptr_t)memory[i] % 16) % 16;
    for (int i = 0; i < 4096; ++i)
        planes[0][i] = planes[1][i] = (uint8_t)(i * 37 % 251);

    for (size_t i = 0; i < sizeof exports / sizeof *exports; ++i) {
        const char* const name = exports[i].name;
        if (strcmp(name + strlen(name) - 3, "_EX") != 0)
            continue;
        for (int variant = 0; variant < 16; ++variant) {
            OrvaConversionDescriptor conversion = {0};
            conversion.srcData = planes[0];
            conversion.srcPlane2Data = planes[1];
            conversion.dstData = planes[2];
            conversion.dstPlane2Data = planes[3];
            conversion.dstWidth = variant & 1 ? 70 : 96; /* general and fast kernels */
            conversion.srcHeight = conversion.dstHeight = 1;
            conversion.srcPitch = conversion.dstPitch = conversion.dstPlane2Pitch = 96;
            conversion.streamingStores = variant & 2;
            conversion.clampStudio = variant & 4;
            conversion.srcColorSpace = variant & 8 ? 1 : 0;
            conversion.alphaValue = 255;
            for (int past = 0; past < 16; past += 4) {
                memset(planes[2], 0x55, 4096);
                memset(planes[3], 0x55, 4096);
                callWithStack(past, exports[i].function, &conversion);
                if (past == 0) {
                    memcpy(aligned[0], planes[2], 4096);
                    memcpy(aligned[1], planes[3], 4096);
                }
                if (planes[2][0] == 0x55 && planes[2][1] == 0x55 && planes[2][2] == 0x55) {
                    printf("%s wrote nothing\n", name);
                    return 1;
                }
                if (memcmp(aligned[0], planes[2], 4096) || memcmp(aligned[1], planes[3], 4096)) {
                    printf("%s depends on the stack's alignment\n", name);
                    return 1;
                }
                ++calls;
            }
        }
    }
    printf("%d calls\n", calls);
    return calls > 0 ? 0 : 1;
}
