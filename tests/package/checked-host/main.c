/* Converts a frame of colour bars with every argument checked, and prints the colours. */
#include <orva/convert.h>

#include <stdio.h>
#include <stdlib.h>

enum { width = 1280, height = 720 };

/* Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709. */
static const uint8_t bars[8][4] = {{128, 235, 128, 235}, {16, 219, 138, 219}, {154, 188, 16, 188},
                                   {42, 173, 26, 173},   {214, 78, 230, 78},  {102, 63, 240, 63},
                                   {240, 32, 118, 32},   {128, 16, 128, 16}};

static int refused(const OrvaError* error) {
    char text[ORVA_DESCRIPTION_SIZE];
    orva_describe(error, text, sizeof text);
    fprintf(stderr, "%s\n", text);
    return EXIT_FAILURE;
}

int main(void) {
    const size_t cameraSize = (size_t)orva_frame_bytes(ORVA_FORMAT_UYVY16I, width, height);
    const size_t screenSize = (size_t)orva_frame_bytes(ORVA_FORMAT_BGR32I, width, height);
    uint8_t* const cameraBytes = malloc(cameraSize);
    uint8_t* const screenBytes = malloc(screenSize);
    if (!cameraBytes || !screenBytes)
        return EXIT_FAILURE;
    for (size_t i = 0; i < cameraSize; ++i)
        cameraBytes[i] = bars[i % (width * 2) * 8 / (width * 2)][i % 4];

    OrvaImage camera = ORVA_IMAGE_INIT, screen = ORVA_IMAGE_INIT;
    OrvaError error = ORVA_ERROR_INIT;
    if (orva_frame_image(&camera, ORVA_FORMAT_UYVY16I, width, height, cameraBytes, cameraSize,
                         &error) ||
        orva_frame_image(&screen, ORVA_FORMAT_BGR32I, width, height, screenBytes, screenSize,
                         &error) ||
        orva_convert(&camera, &screen, NULL, &error))
        return refused(&error);

    const uint8_t* const middleRow = screenBytes + height / 2 * width * 4;
    for (int bar = 0; bar < 8; ++bar) {
        const uint8_t* const pixel = middleRow + (bar * 2 + 1) * width * 4 / 16;
        printf("red %3d  green %3d  blue %3d  alpha %d\n", pixel[2], pixel[1], pixel[0], pixel[3]);
    }
    free(cameraBytes);
    free(screenBytes);
    return EXIT_SUCCESS;
}
