/* Calls what docs/getting-started.md shows in C, which is "getting-started.c" here. */
#include "getting-started.c"

#include <stdlib.h>
#include <string.h>

static void check(int holds, const char* what) {
    if (!holds) {
        printf("%s\n", what);
        exit(1);
    }
}

enum { width = 1920, height = 1080 };
static uint8_t uyvy[width * height * 2 + 16], window[2][width * height * 4 + 16];

int main(void) {
    for (int i = 0; i < width * height * 2; ++i)
        uyvy[i] = (uint8_t)(i % 2 ? 16 + i / (width * 2) / 5 : 128); /* brighter from row to row */

    const OrvaImage upright = windowImage(window[0], width, height, width * 4);
    check(showFrame(uyvy, sizeof uyvy, &upright), "a frame");
    check(!showFrame(uyvy, 1000, &upright), "a short frame");
    check(window[0][0] == 250 && window[0][(height - 1) * width * 4] == 0, "rows run upwards");

    OrvaImage camera = ORVA_IMAGE_INIT;
    orva_frame_image(&camera, ORVA_FORMAT_UYVY16I, width, height, uyvy, sizeof uyvy, NULL);
    const OrvaImage shared = windowImage(window[1], width, height, width * 4);
    for (uint32_t share = 0; share < 7; ++share)
        check(showShare(&camera, &shared, share, 7), "a share");
    check(memcmp(window[0], window[1], sizeof window[0]) == 0, "shares are the same bytes");

    check(showWebcam(&camera, &shared) && window[1][0] == 231, "options");

    OrvaImage part = camera;
    check(!orva_crop(&part, 2, 500, 101, 7, NULL), "a part");
    memset(window[1], 1, sizeof window[1]);
    check(!showInside(&part, shared, width - 100, 0), "a part that does not fit");
    check(showInside(&part, shared, 3, 5), "a part inside");
    const uint8_t* const row = window[1] + (height - 6) * width * 4;
    check(row[2 * 4] == 1 && row[3 * 4] != 1 && row[103 * 4] != 1 && row[104 * 4] == 1,
          "its place");

    static uint8_t aligned[2][width * height * 4] __attribute__((aligned(16)));
    memcpy(aligned[0], uyvy, width * height * 2);
    show(aligned[0], aligned[1]);
    check(aligned[1][0] == 0 && aligned[1][sizeof aligned[1] - 4] == 250, "the export");
    return 0;
}
