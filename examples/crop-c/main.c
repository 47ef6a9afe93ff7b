/* Puts a part of a camera's picture into a bigger one, and saves that:
 *
 *     crop-c picture.ppm [X]
 *
 * X is where the part begins in the camera's picture, in which two pixels share their chroma: an
 * odd X is refused. Where the part goes any pixel will do. */
#include <orva/convert.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum {
    cameraWidth = 640,
    cameraHeight = 360,
    partX = 80,
    partY = 45,
    partWidth = 481, /* may be odd, too */
    partHeight = 270,
    screenWidth = 960,
    screenHeight = 540,
    left = 333,
    top = 101,
    cameraSize = cameraWidth * cameraHeight * 2,
    screenSize = screenWidth * screenHeight * 3
};

/* Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709. */
static const uint8_t bars[8][4] = {{128, 235, 128, 235}, {16, 219, 138, 219}, {154, 188, 16, 188},
                                   {42, 173, 26, 173},   {214, 78, 230, 78},  {102, 63, 240, 63},
                                   {240, 32, 118, 32},   {128, 16, 128, 16}};

/* Each function returns ORVA_DONE, which is 0, or has touched nothing and says in `error` why. */
static int compose(uint8_t* cameraBytes, uint8_t* screenBytes, uint32_t x, OrvaError* error) {
    OrvaImage part = ORVA_IMAGE_INIT, place = ORVA_IMAGE_INIT;
    OrvaImage screen = ORVA_IMAGE_INIT, file = ORVA_IMAGE_INIT;
    OrvaOptions options = ORVA_OPTIONS_INIT;
    options.srcMatrix = ORVA_MATRIX_BT709;

    return !orva_frame_image(&part, ORVA_FORMAT_UYVY16I, cameraWidth, cameraHeight, cameraBytes,
                             cameraSize, error) &&
           !orva_crop(&part, x, partY, partWidth, partHeight, error) &&

           !orva_frame_image(&place, ORVA_FORMAT_BGR24I, screenWidth, screenHeight, screenBytes,
                             screenSize, error) &&
           !orva_crop(&place, left, top, partWidth, partHeight, error) &&
           !orva_convert(&part, &place, &options, error) &&

           /* The file has red first; pixels of the same size may change where they are. */
           !orva_frame_image(&screen, ORVA_FORMAT_BGR24I, screenWidth, screenHeight, screenBytes,
                             screenSize, error) &&
           !orva_frame_image(&file, ORVA_FORMAT_RGB24I, screenWidth, screenHeight, screenBytes,
                             screenSize, error) &&
           !orva_convert(&screen, &file, NULL, error);
}

static int save(const char* path, const uint8_t* screen) {
    FILE* const file = fopen(path, "wb");
    if (!file)
        return 0;
    fprintf(file, "P6\n%d %d\n255\n", screenWidth, screenHeight);
    const int written = fwrite(screen, 1, screenSize, file) == screenSize;
    return fclose(file) == 0 && written;
}

int main(int argc, char** argv) {
    uint8_t* const camera = malloc(cameraSize);
    uint8_t* const screen = malloc(screenSize);
    int status = EXIT_FAILURE;
    if (argc < 2 || !camera || !screen) {
        fputs("usage: crop-c picture.ppm [X]\n", stderr);
    } else {
        for (int i = 0; i < cameraSize; ++i)
            camera[i] = bars[i % (cameraWidth * 2) * 8 / (cameraWidth * 2)][i % 4];
        memset(screen, 96, screenSize);

        const uint32_t x = argc > 2 ? (uint32_t)strtoul(argv[2], NULL, 10) : partX;
        OrvaError error = ORVA_ERROR_INIT;
        if (!compose(camera, screen, x, &error)) {
            char text[ORVA_DESCRIPTION_SIZE];
            orva_describe(&error, text, sizeof text);
            fprintf(stderr, "crop-c: %s\n", text);
        } else if (save(argv[1], screen)) {
            status = EXIT_SUCCESS;
        } else {
            perror(argv[1]);
        }
    }
    free(camera);
    free(screen);
    return status;
}
