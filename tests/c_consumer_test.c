/* Uses the library as a C99 program does: through the shared library and the plain header. */
#include <orva/orva.h>

#include <stdio.h>

int main(void) {
    uint8_t plane[3] = {1, 1, 1};
    OrvaConversionDescriptor fill = {0};
    fill.srcHeight = 1;
    fill.dstData = plane;
    fill.dstWidth = 2;
    fill.alphaValue = 200;
    ORVA_SSE2_A8C_A8P_EX(&fill);
    if (plane[0] == 200 && plane[1] == 200 && plane[2] == 1)
        return 0;
    fprintf(stderr, "filled with %d %d, then %d\n", plane[0], plane[1], plane[2]);
    return 1;
}
