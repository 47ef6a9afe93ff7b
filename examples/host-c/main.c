/* Converts a frame of colour bars from a camera's format, UYVY16I, to a screen's, BGR32I, and
 * prints the colours. */
#include <orva/orva.h>

#include <stdio.h>
#include <stdlib.h>

enum { width = 1280, height = 720, srcPitch = width * 2, dstPitch = width * 4 };

/* Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709. */
static const uint8_t bars[8][4] = {{128, 235, 128, 235}, {16, 219, 138, 219}, {154, 188, 16, 188},
                                   {42, 173, 26, 173},   {214, 78, 230, 78},  {102, 63, 240, 63},
                                   {240, 32, 118, 32},   {128, 16, 128, 16}};

/* Frames at multiples of 16 bytes, with such pitches, are converted fastest. */
static uint8_t* alignedFrame(void* memory) {
    return (uint8_t*)(((uintptr_t)memory + 15) & ~(uintptr_t)15);
}

int main(void) {
    void* const srcMemory = malloc(srcPitch * height + 15);
    void* const dstMemory = malloc(dstPitch * height + 15);
    if (!srcMemory || !dstMemory)
        return EXIT_FAILURE;
    uint8_t* const src = alignedFrame(srcMemory);
    uint8_t* const dst = alignedFrame(dstMemory);

    for (int i = 0; i < srcPitch * height; ++i)
        src[i] = bars[i % srcPitch * 8 / srcPitch][i % 4];

    OrvaConversionDescriptor conversion = {0}; /* studio range */
    conversion.srcData = src;
    conversion.srcHeight = height;
    conversion.srcPitch = srcPitch;
    conversion.dstData = dst;
    conversion.dstWidth = width;
    conversion.dstHeight = height;
    conversion.dstPitch = dstPitch;
    conversion.dstColorSpace = 0; /* to BGR, this is the source's matrix; 0: BT.709 */
    conversion.alphaValue = 255;
    /* srcRowGap and dstRowGap stay 0: each row begins where the one above it ends. */
    ORVA_SSE2_UYVY16I_BGR32I_EX(&conversion);

    const uint8_t* const middleRow = dst + height / 2 * dstPitch;
    for (int bar = 0; bar < 8; ++bar) {
        const uint8_t* const pixel = middleRow + (bar * 2 + 1) * dstPitch / 16;
        printf("red %3d  green %3d  blue %3d  alpha %d\n", pixel[2], pixel[1], pixel[0], pixel[3]);
    }
    free(srcMemory);
    free(dstMemory);
    return EXIT_SUCCESS;
}
