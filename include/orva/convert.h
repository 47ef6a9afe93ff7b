/* ORVA's checked library: any pixel format to any other, for every language that can call C.
 *
 *     OrvaImage camera = ORVA_IMAGE_INIT, screen = ORVA_IMAGE_INIT;
 *     orva_frame_image(&camera, ORVA_FORMAT_UYVY16I, 1920, 1080, bytes, size, NULL);
 *     orva_frame_image(&screen, ORVA_FORMAT_BGR32I, 1920, 1080, pixels, pixelsSize, NULL);
 *     OrvaError error = ORVA_ERROR_INIT;
 *     if (orva_convert(&camera, &screen, NULL, &error)) {
 *         char text[ORVA_DESCRIPTION_SIZE];
 *         orva_describe(&error, text, sizeof text);
 *         puts(text);
 *     }
 *
 * Every argument is checked before a byte is touched. No function allocates, keeps state between
 * calls, throws or writes anything but what its comment names; all may be called from any number of
 * threads at once. Texts are UTF-8, end with a 0 byte and live as long as the library. A null
 * pointer is allowed where a comment says so, and refused or answered with "nothing" elsewhere.
 *
 * OrvaImage, OrvaOptions and OrvaError begin with their size, which their caller sets,
 * OrvaFormatInfo with its own: a later version may add fields at the end. Every field has the same
 * type in every build but for pointers, size_t and ptrdiff_t.
 *
 * This header is plain C99 and C++. <orva/convert.hpp> is the same for C++20, <orva/orva.h> is
 * another library.
 */
#ifndef ORVA_CONVERT_H
#define ORVA_CONVERT_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define ORVA_CONVERT_CALL __cdecl
#if defined(ORVA_CONVERT_BUILD) || defined(ORVA_CONVERT_STATIC)
#define ORVA_CONVERT_API
#else
#define ORVA_CONVERT_API __declspec(dllimport)
#endif
#else
#define ORVA_CONVERT_CALL
#if defined(ORVA_CONVERT_BUILD)
#define ORVA_CONVERT_API __attribute__((visibility("default")))
#else
#define ORVA_CONVERT_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- The library ---------------------------------------------------------------------------- */

/* Its version, as in "0.1.0". */
ORVA_CONVERT_API const char* ORVA_CONVERT_CALL orva_version(void);

/* The instruction set that conversions use, chosen for this processor when the library was loaded:
 * "SSE2", "SSE4.1", "AVX2", "AVX-VNNI", "AVX-512" or "NEON". All give the same bytes. */
ORVA_CONVERT_API const char* ORVA_CONVERT_CALL orva_instruction_set(void);

/* ---- Formats --------------------------------------------------------------------------------- */

/* Letters name the samples in memory order, numbers their bits or those of a pixel; P ends a plane,
 * I a plane in which samples are interleaved. A trailing A8P is an alpha plane beside the image. */
typedef uint32_t OrvaFormat;
enum {
    ORVA_FORMAT_UYVY16I = 0, /* 4:2:2 in one plane: Cb Y Cr Y */
    ORVA_FORMAT_YUYV16I = 1, /* Y Cb Y Cr */
    ORVA_FORMAT_UVYY16I = 2, /* Cb Cr Y Y */
    ORVA_FORMAT_Y8PUV8I = 3, /* a plane of Y, a plane of Cb Cr pairs */
    ORVA_FORMAT_BGR32I = 4,  /* B G R A */
    ORVA_FORMAT_BGR24I = 5,  /* B G R */
    ORVA_FORMAT_A8P = 6,     /* alpha alone */
    ORVA_FORMAT_UYVY16IA8P = 7,
    ORVA_FORMAT_YUYV16IA8P = 8,
    ORVA_FORMAT_UVYY16IA8P = 9,
    ORVA_FORMAT_Y8PUV8IA8P = 10,
    ORVA_FORMAT_BGR24IA8P = 11,
    ORVA_FORMAT_A8C = 12,       /* a source without planes: every pixel's alpha is an option */
    ORVA_FORMAT_RGB24I = 13,    /* R G B */
    ORVA_FORMAT_RGB32I = 14,    /* R G B A */
    ORVA_FORMAT_ARGB32I = 15,   /* A R G B */
    ORVA_FORMAT_ABGR32I = 16,   /* A B G R */
    ORVA_FORMAT_Y8PU8PV8P = 17, /* 4:2:2 in planes of Y, Cb and Cr */
    ORVA_FORMAT_V210 = 18,      /* 4:2:2 of 10 bits: 6 pixels in four little-endian 32-bit words */
    ORVA_FORMAT_Y10PUV10I = 19, /* as Y8PUV8I: upper 10 bits of 16-bit little-endian words */
    ORVA_FORMAT_Y10PU10PV10P = 20, /* as Y8PU8PV8P: lower 10 bits of 16-bit little-endian words */
    ORVA_FORMAT_RGB24IA8P = 21
};
#define ORVA_FORMAT_NONE UINT32_MAX /* no format */

/* What the samples of a format mean. */
enum { ORVA_MODEL_ALPHA = 0, ORVA_MODEL_RGB = 1, ORVA_MODEL_YCBCR = 2 };

/* The planes that an image may have. */
enum {
    ORVA_PLANE_MAIN = 0,   /* packed samples, luma, or alpha alone */
    ORVA_PLANE_CHROMA = 1, /* pairs of Cb and Cr, or Cb where Cr has a plane of its own */
    ORVA_PLANE_CR = 2,
    ORVA_PLANE_ALPHA = 3, /* of formats whose name ends in A8P */
    ORVA_PLANE_COUNT = 4
};

/* A plane's row is a run of units, each of which holds whole pixels. */
typedef struct OrvaPlaneInfo {
    uint8_t unitBytes;  /* 0: the format does not have this plane */
    uint8_t unitPixels; /* 2 in 4:2:2, 6 in V210, else 1 */
} OrvaPlaneInfo;

/* What a format stores. */
typedef struct OrvaFormatInfo {
    uint32_t structSize;
    OrvaFormat format;
    OrvaFormat colour; /* the same without its alpha plane */
    uint32_t model;
    uint32_t bits;     /* of a sample: 8 or 10 */
    uint32_t hasAlpha; /* 1 in the pixels, as a plane or alone; else 0 */
    OrvaPlaneInfo planes[ORVA_PLANE_COUNT];
    const char* name;
    const char* otherNames; /* what other programs call it, separated by spaces; may be empty */
} OrvaFormatInfo;

/* How many formats there are: those from 0 up to, but not including, this number. */
ORVA_CONVERT_API uint32_t ORVA_CONVERT_CALL orva_format_count(void);

/* What the format stores; null for a value that is no format. */
ORVA_CONVERT_API const OrvaFormatInfo* ORVA_CONVERT_CALL orva_format_info(OrvaFormat format);

/* The format with this name or other name, upper or lower case; ORVA_FORMAT_NONE if there is none
 * or the name is null. */
ORVA_CONVERT_API OrvaFormat ORVA_CONVERT_CALL orva_format_named(const char* name);

/* 1 if orva_convert knows the pair, else 0: every colour becomes every colour, and what has alpha,
 * A8C included, becomes A8P. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_can_convert(OrvaFormat source,
                                                            OrvaFormat destination);

/* ---- Sizes ----------------------------------------------------------------------------------- */

/* Bytes of a row without any gap behind it: whole units, of which the last may be partly used. 0
 * for a plane that the format does not have, and for a value that is no format. */
ORVA_CONVERT_API uint64_t ORVA_CONVERT_CALL orva_row_bytes(OrvaFormat format, uint32_t plane,
                                                           uint32_t width);

/* Bytes from a row to the next one in a raw frame, as files and pipes hold it: a row without a gap,
 * but in V210 the next multiple of 128, as capture cards and other programs have it. 0 where
 * orva_row_bytes gives 0. */
ORVA_CONVERT_API uint64_t ORVA_CONVERT_CALL orva_frame_pitch(OrvaFormat format, uint32_t plane,
                                                             uint32_t width);

/* Bytes of a raw frame: its planes in the order of ORVA_PLANE_MAIN to ORVA_PLANE_ALPHA, one behind
 * the other. 0 of A8C and of a value that is no format; UINT64_MAX if there are more than that,
 * which no memory holds. */
ORVA_CONVERT_API uint64_t ORVA_CONVERT_CALL orva_frame_bytes(OrvaFormat format, uint32_t width,
                                                             uint32_t height);

/* ---- Errors ---------------------------------------------------------------------------------- */

/* What a function that can refuse returns. */
enum {
    ORVA_DONE = 0,
    ORVA_BAD_FORMAT = 1,         /* a value that is no format */
    ORVA_NO_SUCH_CONVERSION = 2, /* colour of alpha alone, alpha of colour without it, to A8C */
    ORVA_BAD_OPTION = 3,         /* an option outside its range */
    ORVA_SIZE_MISMATCH = 4,      /* the images differ in width or height */
    ORVA_NULL_PLANE = 5,         /* a plane that the format has is not there */
    ORVA_PITCH_BELOW_ROW = 6,    /* rows would overlap one another */
    ORVA_SHORT_PLANE = 7,        /* a plane is shorter than its rows */
    ORVA_OVERLAP = 8,   /* two planes share bytes, gaps between rows included; one is written */
    ORVA_BAD_ROWS = 9,  /* rows outside the image */
    ORVA_BAD_SIZE = 10, /* a row, or a plane, longer than half of the address space */
    ORVA_BAD_CROP = 11, /* a crop outside the image, or not on whole units */
    ORVA_NULL_ARGUMENT = 12,
    ORVA_BAD_STRUCT_SIZE = 13 /* a structSize that this version does not know */
};

/* Which argument was refused, and why. */
typedef struct OrvaError {
    uint32_t structSize;
    int32_t code;
    int64_t value;      /* what the argument held; of an overlap, how far behind the other plane it
                           begins */
    const char* field;  /* the argument, for example "destination.main.pitch" */
    const char* advice; /* a sentence: what to change */
} OrvaError;
#define ORVA_ERROR_INIT                                                                            \
    { (uint32_t)sizeof(OrvaError), 0, 0, "", "" }

/* Writes "<field> is <value>: <advice>", or "done", to the text of `size` bytes, cut to what fits
 * with a 0 byte at its end; nothing if text is null or size is 0. Returns the whole text's length
 * without the 0 byte; of this library's errors, less than ORVA_DESCRIPTION_SIZE. Of a null error or
 * one of unknown structSize it writes an empty text and returns 0. */
ORVA_CONVERT_API size_t ORVA_CONVERT_CALL orva_describe(const OrvaError* error, char* text,
                                                        size_t size);
#define ORVA_DESCRIPTION_SIZE 512

/* ---- Images ---------------------------------------------------------------------------------- */

/* One plane in memory that the caller owns: `size` bytes from its lowest address on, row gaps
 * included; only the last row's gap may be missing.
 *
 * `pitch` is the distance in bytes from a row to the next one below it, at least a row long. A
 * negative pitch is a bottom-up image: its first row is the last one in memory. */
typedef struct OrvaPlane {
    void* data;
    size_t size;
    ptrdiff_t pitch;
} OrvaPlane;

/* An image in memory that the caller owns, at any addresses and with any pitches. Planes that the
 * format does not have are not looked at. A source's planes are only read.
 *
 * The first pixel of a row is where the plane's row begins: a crop begins at any pixel of RGB and
 * alpha, at an even one of 4:2:2, at a multiple of 6 of V210. A width may be odd in every format;
 * what a last unit holds beyond it is not part of the picture. */
typedef struct OrvaImage {
    uint32_t structSize;
    OrvaFormat format;
    uint32_t width;  /* pixels */
    uint32_t height; /* rows */
    OrvaPlane main;
    OrvaPlane chroma;
    OrvaPlane cr;
    OrvaPlane alpha;
} OrvaImage;
#define ORVA_IMAGE_INIT                                                                            \
    {                                                                                              \
        (uint32_t)sizeof(OrvaImage), 0, 0, 0, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, { 0, 0, 0 }         \
    }

/* Makes `image`, whose structSize must be set, an image over a raw frame (see orva_frame_pitch) at
 * `data` of at least orva_frame_bytes bytes, whose memory is not touched. Sets all other fields, or
 * none if the call is refused: a null image, null data of a frame that has bytes, a value that is
 * no format, A8C, or a size too short. `error` may be null. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_frame_image(OrvaImage* image, OrvaFormat format,
                                                            uint32_t width, uint32_t height,
                                                            void* data, size_t size,
                                                            OrvaError* error);

/* Narrows `image` to the pixels from (x, y) on, `width` times `height` of them; its memory is not
 * touched. Refused, and left as it is, if they are not all in the image, if x is not on a whole
 * unit (even in 4:2:2, a multiple of 6 in V210), or if the image's own fields are wrong. `error`
 * may be null. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_crop(OrvaImage* image, uint32_t x, uint32_t y,
                                                     uint32_t width, uint32_t height,
                                                     OrvaError* error);

/* ---- Conversion ------------------------------------------------------------------------------ */

/* How YCbCr is made of R'G'B': ITU-R BT.601, BT.709, BT.2020 with non-constant luminance. */
enum { ORVA_MATRIX_BT601 = 0, ORVA_MATRIX_BT709 = 1, ORVA_MATRIX_BT2020 = 2 };

/* Which codes mean black to white, and the least to the greatest chroma: of 8 bits, 16 to 235 and
 * 16 to 240 (studio), or 0 to 255 and 0.5 to 255.5 (full). RGB is always full. */
enum { ORVA_RANGE_STUDIO = 0, ORVA_RANGE_FULL = 1 };

/* Where 4:2:2 chroma lies. Cosited: on the even pixels; an odd pixel takes the mean of its
 * neighbours' (the last one its left neighbour's), and what is made of RGB is filtered by 1/4 1/2
 * 1/4 around the even pixel, with the row's first and last pixel repeated beyond its ends. Nearest:
 * both pixels of a pair take the pair's, and the even pixel's is kept. */
enum { ORVA_CHROMA_COSITED = 0, ORVA_CHROMA_NEAREST = 1 };

/* Whether frames are written past the cache, which is faster where they are not read again soon.
 * Never changes a byte, and takes place where whole cache lines come together: in planes that are
 * copied or filled; where rows of the destination begin at multiples of 64 bytes, and are long or
 * end near one as well; in a single row, and in rows without gaps if no pixel needs its neighbours.
 * Automatic: in pictures of 2 MB and more, source and destination together, what only moves, and
 * where the processor gains by it what is computed and takes no fewer bytes than the source. */
enum { ORVA_STREAMING_AUTOMATIC = 0, ORVA_STREAMING_NEVER = 1, ORVA_STREAMING_ALWAYS = 2 };

typedef struct OrvaOptions {
    uint32_t structSize;
    uint32_t srcMatrix; /* of a YCbCr source; BT.709 by default */
    uint32_t dstMatrix; /* of a YCbCr destination; BT.709 by default */
    uint32_t srcRange;  /* of a YCbCr source; studio by default */
    uint32_t dstRange;  /* of a YCbCr destination; studio by default */
    uint32_t chroma;    /* cosited by default */
    uint32_t streaming; /* automatic by default */
    int32_t alpha;      /* 0..255: of a destination whose source has none; 255 by default */
} OrvaOptions;
#define ORVA_OPTIONS_INIT                                                                          \
    {                                                                                              \
        (uint32_t)sizeof(OrvaOptions), ORVA_MATRIX_BT709, ORVA_MATRIX_BT709, ORVA_RANGE_STUDIO,    \
            ORVA_RANGE_STUDIO, ORVA_CHROMA_COSITED, ORVA_STREAMING_AUTOMATIC, 255                  \
    }

/* Sets the defaults, for languages that cannot use ORVA_OPTIONS_INIT. `structSize` is the size of
 * the structure at `options`. Returns ORVA_DONE, or sets nothing and returns ORVA_NULL_ARGUMENT or
 * ORVA_BAD_STRUCT_SIZE. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_options_init(OrvaOptions* options,
                                                             uint32_t structSize);

/* Converts the source into the destination, which has the same size. Every byte of the
 * destination's rows is written and nothing outside them, nothing outside the source's rows is
 * read, and what was stored past the cache is seen by every thread afterwards. Takes less than
 * 64 KB of stack.
 *
 * No sample is further than 0.6 of a code from the real value that the standards define; samples
 * outside their nominal range keep their value and saturate only where the destination ends (in
 * V210 at 4 and 1019: its other codes are reserved). Same format but for an alpha plane, same
 * matrix and range: rows are copied. Else 4:2:2 repeats the luma of an odd row's last pixel behind
 * it, and V210 is zero beyond the last pair.
 *
 * Alpha that the source has goes to its own pixel, or is dropped where the destination has none;
 * alpha that it does not have is the option's in every pixel.
 *
 * The two images may share the same one of their planes where both divide it into the same units
 * (OrvaPlaneInfo): first rows at the same address, with the same pitch. Any other overlap is
 * refused. An empty image is done at once.
 *
 * `options` may be null: all defaults. `error` may be null; else its structSize must be set. A
 * refusal fills the rest, a call that is done leaves it as it was. Returns ORVA_DONE, or the code
 * of what was refused; then nothing has been read or written. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_convert(const OrvaImage* source,
                                                        const OrvaImage* destination,
                                                        const OrvaOptions* options,
                                                        OrvaError* error);

/* The same for some rows of both images, counted from the top; a count that goes beyond the last
 * row is cut to it. Converting the rows in ranges, in any order and on any threads, gives the same
 * bytes as converting them all at once. Refuses a first row beyond the images' height as well. */
ORVA_CONVERT_API int32_t ORVA_CONVERT_CALL orva_convert_rows(const OrvaImage* source,
                                                             const OrvaImage* destination,
                                                             const OrvaOptions* options,
                                                             uint32_t firstRow, uint32_t rowCount,
                                                             OrvaError* error);

#ifdef __cplusplus
}
#endif

#endif
