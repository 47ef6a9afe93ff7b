/* ORVA: pixel-format converters for uncompressed video frames.
 *
 * Every conversion takes one pointer to a conversion descriptor, reads the source planes and writes
 * the destination planes before it returns. The library keeps no state between calls, allocates
 * nothing and reports no errors: a descriptor that breaks the contract below faults or writes wrong
 * memory. <orva/convert.h> is another library: the picture by definition, every argument checked.
 *
 * Formats (bytes in memory order; pixels 2k and 2k+1 of a row share one Cb and one Cr):
 *
 *   UYVY16I   4 bytes per pixel pair: Cb Y(2k) Cr Y(2k+1)
 *   YUYV16I   4 bytes per pixel pair: Y(2k) Cb Y(2k+1) Cr
 *   UVYY16I   4 bytes per pixel pair: Cb Cr Y(2k) Y(2k+1)
 *   Y8PUV8I   a plane of luma bytes, then a plane of Cb Cr byte pairs with one row per luma row; it
 *             begins at data + pitch * height of the same image and has the same row gap
 *   BGR32I    4 bytes per pixel: B G R and a fourth byte, the pixel's alpha
 *   BGR24I    3 bytes per pixel: B G R
 *   A8P       1 byte per pixel: alpha in a plane of its own; behind another format's name (as in
 *             UYVY16IA8P) the alpha plane that goes with it, the descriptor's second plane
 *   A8C       no plane: a constant alpha, the descriptor's alphaValue
 *
 * This header is plain C99 and C++.
 */
#ifndef ORVA_ORVA_H
#define ORVA_ORVA_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define ORVA_CALL __cdecl
#if defined(ORVA_BUILD) || defined(ORVA_STATIC)
#define ORVA_API
#else
#define ORVA_API __declspec(dllimport)
#endif
#else
#define ORVA_CALL
#if defined(ORVA_STATIC)
#define ORVA_API
#else
#define ORVA_API __attribute__((visibility("default")))
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The request record of every conversion. The caller fills and keeps it; it is only read.
 *
 * Widths count pixels, heights count rows, pitches and row gaps count bytes. Both images have
 * dstWidth columns; rows come from srcHeight. A conversion walks each plane with a running pointer:
 * it converts a row and then adds the plane's row gap, so a row gap is the plane's pitch minus the
 * bytes that the row took. Pitches never move a row: they select kernels, place the second plane of
 * Y8PUV8I, and address line pairs and doubled lines in kernel modes.
 */
typedef struct OrvaConversionDescriptor {
    const void* srcData;   /* first byte of the source's (main or luma) plane */
    uint32_t srcWidth;     /* not read */
    uint32_t srcHeight;    /* number of rows (kernel modes 1 and 2 may take dstHeight) */
    int32_t srcPitch;      /* bytes from row to row; see above for what reads it */
    int32_t srcRowGap;     /* bytes added to the source pointer after each row, any sign */
    int32_t srcColorSpace; /* 1: BT.601, anything else: BT.709 */
    int32_t srcRange;      /* carried, not read */
    uint8_t
        srcLinePairAdjacent;   /* line-pair modes: nonzero if the pair's second line is the next */
    const void* srcPlane2Data; /* first byte of the source's alpha plane */
    int32_t srcPlane2Pitch;
    int32_t srcPlane2RowGap;

    void* dstData;      /* first byte of the destination's (main or luma) plane */
    uint32_t dstWidth;  /* pixels per row of both images */
    uint32_t dstHeight; /* places a Y8PUV8I destination's second plane; rows of line-pair modes */
    int32_t dstPitch;   /* bytes from row to row; see above for what reads it */
    int32_t dstRowGap;  /* bytes added to the destination pointer after each row, any sign */
    int32_t dstColorSpace;       /* 1: BT.601, anything else: BT.709 */
    int32_t dstRange;            /* carried, not read */
    uint8_t dstLinePairAdjacent; /* not read */
    void* dstPlane2Data;         /* first byte of the destination's alpha plane */
    int32_t dstPlane2Pitch;      /* read by the alpha step's kernel selection */
    int32_t dstPlane2RowGap;

    int32_t alphaValue;      /* constant alpha, usually 0..255 */
    uint8_t fullRange;       /* nonzero: luma spans 0..255; zero: studio range, 16..235 */
    uint8_t streamingStores; /* nonzero: write the destination past the cache */
    uint8_t clampStudio;     /* nonzero: clamp luma to 16..235 */
    uint8_t reserved;        /* not read */
    int32_t lineMode;        /* line addressing of kernel modes 1 and 2: 0, 1 or 2 */
    int32_t kernelMode;      /* 0: full size; 1 to 3: see the exports that have modes */
} OrvaConversionDescriptor;

/* What holds for every conversion below unless its own text says otherwise:
 *
 * - A conversion has a fast kernel and a general one. The fast kernel runs when the fields named
 *   under "fast when" are multiples of the numbers beside them. It takes whole blocks only, and
 *   every row of the image, not just the first, must then be aligned as the first one is. The
 *   general kernel takes any width. Both give the same bytes except where a text says so.
 * - The source may have any address and pitch.
 * - In conversions of 4:2:2 formats an odd last pixel is not converted, and the pointers do not
 *   pass over it. Copying or filling an alpha plane covers it.
 * - streamingStores changes how the destination is written, never what. No store fence is issued:
 *   a caller that hands the frame to another thread issues one.
 * - No rows or a dstWidth of 0 writes nothing.
 * - Source and destination must not overlap, nor may the planes of one image.
 * - Calls may run on any number of threads at once if their destinations do not overlap.
 *
 * "Source aligned" below means that the fast kernel needs every source row 16-byte aligned although
 * no test looks. docs/conversions.md lists all of this in one table, docs/arithmetic.md every
 * formula.
 */

/* ---- Alpha planes -------------------------------------------------------------------------------
 */

/* Copies an alpha plane (the main planes of both sides). Fast when dstData 16, dstPitch 32,
 * dstWidth 32; source aligned. The general kernel without streamingStores needs source and
 * destination rows with the same address modulo 16 when a row holds a whole block of 32 bytes
 * behind the bytes that lead to its first 16-byte boundary. */
ORVA_API void ORVA_CALL ORVA_SSE2_A8P_A8P_EX(const OrvaConversionDescriptor* conversion);

/* Fills an alpha plane (the destination's main plane) with the low byte of alphaValue. Fast when
 * dstData 16, dstPitch 32, dstWidth 32. */
ORVA_API void ORVA_CALL ORVA_SSE2_A8C_A8P_EX(const OrvaConversionDescriptor* conversion);

/* Alpha out of BGR32I to an alpha plane (the destination's main plane). Fast when dstData 16,
 * dstPitch 16, dstWidth 16; source aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_A8P_EX(const OrvaConversionDescriptor* conversion);

/* BGR32I to BGR24I and its fourth bytes to the destination's second plane. Fast when dstData 16,
 * dstPitch 48, dstWidth 16; source and alpha plane aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);

/* BGR24I with its alpha plane to BGR32I. Fast when dstData 16, dstPitch 16, dstWidth 16; source and
 * alpha plane aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* The source's alpha plane to the destination's main plane: ORVA_SSE2_A8P_A8P_EX from the second
 * plane of the source, whose main plane is not read. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16IA8P_A8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16IA8P_A8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24IA8P_A8P_EX(const OrvaConversionDescriptor* conversion);

/* ---- BGR copies and repacking -------------------------------------------------------------------
 */

/* Copies BGR32I. Fast when dstData 16, dstPitch 16, dstWidth 16; source aligned. In the general
 * kernel destination rows must be 4-byte aligned, and source and destination rows must have the
 * same address modulo 16 when a row holds a whole block of 16 pixels. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* Drops the fourth byte. Fast when dstData 16, dstPitch 48, dstWidth 16; source aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_BGR24I_EX(const OrvaConversionDescriptor* conversion);

/* Adds the low byte of alphaValue as the fourth. Fast when dstData 16, dstPitch 16, dstWidth 16;
 * source aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* Copies BGR24I. Fast when dstData 16, dstPitch 48, dstWidth 16; source aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_BGR24I_EX(const OrvaConversionDescriptor* conversion);

/* ---- YCbCr to BGR -------------------------------------------------------------------------------
 *
 * The matrix is dstColorSpace's; fullRange and clampStudio apply to the source's luma. Chroma is
 * repeated over its pixel pair, not interpolated. In studio range without clampStudio a luma below
 * 16 becomes nearly white in even pixels (its difference to 16 is taken modulo 256) and black in
 * odd ones.
 *
 * The fourth byte of BGR32I is alphaValue saturated to 0..255 (its low 16 bits taken as signed),
 * or, for a source with A8P, the pixel's alpha byte. The general kernel, however, converts the
 * pixels before a row's first 16-byte boundary and behind its last whole block of 8 as single
 * pairs, and rows of less than 16 pixels wholly so. In those pairs
 * - the constant fourth byte is 0 in the even pixel and, in the odd one, 255 if the low byte of
 *   alphaValue is 1..127, else 0;
 * - alpha comes from the row's alpha start + pixel index, but the running alpha pointer does not
 *   move: the blocks of a row take alpha from the row's start on, and over a whole row the pointer
 *   moves by 8 bytes per block and srcPlane2RowGap.
 *
 * BGR32I rows must be 8-byte aligned, BGR24I rows must have even addresses.
 */

/* To BGR32I. Fast when srcData 16, srcPitch 16, dstData 16, dstPitch 32, dstWidth 8. */
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR32I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* To BGR32I. Fast when srcData 16, srcPitch 32, dstData 16, dstPitch 16, dstWidth 8.
 *
 * kernelMode 1 and 2 make a picture of half and a quarter of the size by taking samples, dstWidth
 * pixels wide; see "Reducing modes" below. They read a single packed UYVY16I plane, both of these
 * exports. Their fourth bytes are as in single pairs above everywhere, their even luma does not
 * wrap, and rows of less than 8 pixels are converted as single pairs. kernelMode 3 and 4 must not
 * be used; any other value means 0. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR32I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_Y8PUV8I_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* To BGR32I. Fast when dstData 16, dstPitch 16, dstWidth 16. */
ORVA_API void ORVA_CALL ORVA_SSE2_Y8PUV8IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* To BGR24I. Fast when dstData 16, dstPitch 48, dstWidth 16. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR24I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR24I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UVYY16I_BGR24I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_Y8PUV8I_BGR24I_EX(const OrvaConversionDescriptor* conversion);

/* ---- BGR to YCbCr -------------------------------------------------------------------------------
 *
 * The matrix is dstColorSpace's; fullRange and clampStudio apply to the resulting luma. Chroma is
 * point-sampled: Cb from the even and Cr from the odd pixel of a pair. A destination with A8P gets
 * the source's fourth bytes in its alpha plane. The chroma plane of Y8PUV8I begins at dstData +
 * dstPitch * dstHeight.
 */

/* From BGR32I. Fast when srcData 16, srcPitch 32, dstData 16, dstPitch 16, dstWidth 8; source
 * aligned. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_YUYV16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UVYY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_Y8PUV8IA8P_EX(const OrvaConversionDescriptor* conversion);

/* From BGR32I, as above, with modes. kernelMode 1 and 2 reduce to half and a quarter of the size;
 * see "Reducing modes" below. kernelMode 3 doubles width and height by repeating pixels and lines:
 * dstWidth and srcHeight count source pixels and rows, every line is written to the destination
 * pointer and dstPitch below it, and a row moves the pointer by twice dstRowGap. dstHeight, which
 * places the chroma of Y8PUV8I, counts output lines. kernelMode 4 must not be used; any other value
 * means 0. */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UYVY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UVYY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_Y8PUV8I_EX(const OrvaConversionDescriptor* conversion);

/* From BGR24I. Fast when dstData 16, dstPitch 16, dstWidth 8.
 *
 * BGR24I to UVYY16I with streamingStores, when fast, does not give UVYY16I: each 16 bytes hold the
 * luma of the first 4 of 8 pixels, not clamped, as 16-bit words, then 4 words of the luma offset
 * (16, or 0 in full range). */
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_YUYV16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UYVY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UVYY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_Y8PUV8I_EX(const OrvaConversionDescriptor* conversion);

/* Reducing modes (kernelMode 1: factor 2, kernelMode 2: factor 4, of the exports that have them).
 * Output pixel x is source pixel factor * x, so a source line holds factor * dstWidth
 * pixels. From BGR an output pair takes Cb from its even and Cr from its odd pixel, from UYVY16I
 * both from the source pair of its even pixel. Source rows come from two line pointers in turn,
 * which mark the starts of lines and do not move over a row.
 *
 * With lineMode 1 or 2 there are dstHeight rows. The first pointer starts at srcData, the second
 * one pitch away (srcLinePairAdjacent nonzero) or factor pitches, downwards in memory, or upwards
 * if srcRowGap is negative. After a row one of them, the one just used for YCbCr sources and the
 * other one for BGR sources, moves by srcRowGap and 2 * factor pitches in the same direction. With
 * another lineMode there are srcHeight rows, both start at srcData, and srcRowGap alone moves them.
 */

/* ---- YCbCr to YCbCr -----------------------------------------------------------------------------
 *
 * Fast when dstData 16, dstPitch 16, dstWidth 16. Destination rows must be 4-byte aligned.
 *
 * If srcColorSpace equals dstColorSpace, bytes are moved unchanged and no flag matters. If not, the
 * samples are converted from one matrix to the other: from BT.601 to BT.709 if the codes are
 * exactly 1 and 0, else from BT.709 to BT.601; clampStudio bounds luma before and after. In a block
 * of 16 pixels the first 8 take their luma correction from the next 8, so that they can differ from
 * the same pixels converted as single pairs at a row's ends, by more than rounding where chroma
 * changes within the block.
 */

ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_UYVY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_YUYV16I_EX(const OrvaConversionDescriptor* conversion);

/* With equal codes: source aligned, and in the general kernel source and destination rows must have
 * the same address modulo 16 when a row holds a whole block of 16 pixels. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_YUYV16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_UYVY16I_EX(const OrvaConversionDescriptor* conversion);

/* With equal codes, only the fast kernel reorders: the general one copies the bytes as they are.
 * With different codes both exports take the source for UYVY16I and write UYVY16I. */
ORVA_API void ORVA_CALL ORVA_SSE2_UVYY16I_UYVY16I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_UVYY16I_EX(const OrvaConversionDescriptor* conversion);

/* With equal codes: luma plane at dstData, chroma plane at dstData + dstPitch * dstHeight, rows of
 * any alignment; streamingStores has no effect. With different codes it writes packed UYVY16I at
 * dstData instead. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_Y8PUV8I_EX(const OrvaConversionDescriptor* conversion);

/* ---- Composites ---------------------------------------------------------------------------------
 *
 * A colour conversion from above, exactly as if it were called with the same descriptor, and then a
 * step that fills the destination's alpha plane with the low byte of alphaValue (source without
 * A8P) or copies the source's alpha plane to it (source with A8P). The alpha step is
 * ORVA_SSE2_A8C_A8P_EX or ORVA_SSE2_A8P_A8P_EX on the second planes' fields: its fast kernel runs
 * when dstPlane2Data 16, dstPlane2Pitch 32, dstWidth 32, and what they ask of main planes they ask
 * of the alpha planes here.
 */

/* Filling. */
ORVA_API void ORVA_CALL ORVA_SSE2_Y8PUV8I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UVYY16I_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UVYY16I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_Y8PUV8IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_UVYY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_Y8PUV8IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UVYY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);

/* Copying. */
ORVA_API void ORVA_CALL
ORVA_SSE2_YUYV16IA8P_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_YUYV16IA8P_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_YUYV16IA8P_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_UYVY16IA8P_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_UYVY16IA8P_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_UYVY16IA8P_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_BGR24IA8P_YUYV16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_BGR24IA8P_Y8PUV8IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_BGR24IA8P_UYVY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_BGR24IA8P_UVYY16IA8P_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL
ORVA_SSE2_BGR24IA8P_BGR24IA8P_EX(const OrvaConversionDescriptor* conversion);

/* ---- Positional forms ---------------------------------------------------------------------------
 *
 * Kept for hosts that bind to them. They have no arguments for the image's size and so convert
 * nothing: no call of them writes a byte. Each stands for the export of the same name with _EX.
 * Pitch is the source's in bytes, the destination's is half of it; colorSpace and range are those
 * of both sides; the fourth argument is not read.
 */

ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_YUYV16I(const void* src, void* dst, int32_t pitch,
                                                  int32_t unused, int32_t colorSpace,
                                                  int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR24I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_UYVY16I(const void* src, void* dst, int32_t pitch,
                                                  int32_t unused, int32_t colorSpace,
                                                  int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR24I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_YUYV16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UYVY16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_UVYY16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_BGR32I(const void* src, void* dst, int32_t pitch,
                                                int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_BGR24I(const void* src, void* dst, int32_t pitch,
                                                int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR32I_A8P(const void* src, void* dst, int32_t pitch,
                                             int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_YUYV16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UYVY16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_UVYY16I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_BGR32I(const void* src, void* dst, int32_t pitch,
                                                int32_t unused, int32_t colorSpace, int32_t range);
ORVA_API void ORVA_CALL ORVA_SSE2_BGR24I_BGR24I(const void* src, void* dst, int32_t pitch,
                                                int32_t unused, int32_t colorSpace, int32_t range);

ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR32I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range,
                                                 int32_t alphaValue);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR32I(const void* src, void* dst, int32_t pitch,
                                                 int32_t unused, int32_t colorSpace, int32_t range,
                                                 int32_t alphaValue);

#ifdef __cplusplus
}
#endif

/* The descriptor's layout is part of the interface. */
#if defined(__cplusplus)
#define ORVA_LAYOUT_ASSERT(condition) static_assert(condition, "descriptor layout")
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define ORVA_LAYOUT_ASSERT(condition) _Static_assert(condition, "descriptor layout")
#else
#define ORVA_LAYOUT_ASSERT(condition) extern char orvaDescriptorLayout[(condition) ? 1 : -1]
#endif
/* Offsets of a field in builds with 32-bit and with 64-bit pointers. */
#define ORVA_LAYOUT_OFFSET(field, with32, with64)                                                  \
    ORVA_LAYOUT_ASSERT(offsetof(OrvaConversionDescriptor, field) ==                                \
                       (sizeof(void*) == 4 ? (with32) : (with64)))

ORVA_LAYOUT_ASSERT(sizeof(OrvaConversionDescriptor) == (sizeof(void*) == 4 ? 104 : 128));
ORVA_LAYOUT_OFFSET(srcData, 0, 0);
ORVA_LAYOUT_OFFSET(srcWidth, 4, 8);
ORVA_LAYOUT_OFFSET(srcHeight, 8, 12);
ORVA_LAYOUT_OFFSET(srcPitch, 12, 16);
ORVA_LAYOUT_OFFSET(srcRowGap, 16, 20);
ORVA_LAYOUT_OFFSET(srcColorSpace, 20, 24);
ORVA_LAYOUT_OFFSET(srcRange, 24, 28);
ORVA_LAYOUT_OFFSET(srcLinePairAdjacent, 28, 32);
ORVA_LAYOUT_OFFSET(srcPlane2Data, 32, 40);
ORVA_LAYOUT_OFFSET(srcPlane2Pitch, 36, 48);
ORVA_LAYOUT_OFFSET(srcPlane2RowGap, 40, 52);
ORVA_LAYOUT_OFFSET(dstData, 44, 56);
ORVA_LAYOUT_OFFSET(dstWidth, 48, 64);
ORVA_LAYOUT_OFFSET(dstHeight, 52, 68);
ORVA_LAYOUT_OFFSET(dstPitch, 56, 72);
ORVA_LAYOUT_OFFSET(dstRowGap, 60, 76);
ORVA_LAYOUT_OFFSET(dstColorSpace, 64, 80);
ORVA_LAYOUT_OFFSET(dstRange, 68, 84);
ORVA_LAYOUT_OFFSET(dstLinePairAdjacent, 72, 88);
ORVA_LAYOUT_OFFSET(dstPlane2Data, 76, 96);
ORVA_LAYOUT_OFFSET(dstPlane2Pitch, 80, 104);
ORVA_LAYOUT_OFFSET(dstPlane2RowGap, 84, 108);
ORVA_LAYOUT_OFFSET(alphaValue, 88, 112);
ORVA_LAYOUT_OFFSET(fullRange, 92, 116);
ORVA_LAYOUT_OFFSET(streamingStores, 93, 117);
ORVA_LAYOUT_OFFSET(clampStudio, 94, 118);
ORVA_LAYOUT_OFFSET(reserved, 95, 119);
ORVA_LAYOUT_OFFSET(lineMode, 96, 120);
ORVA_LAYOUT_OFFSET(kernelMode, 100, 124);
#undef ORVA_LAYOUT_OFFSET
#undef ORVA_LAYOUT_ASSERT

#endif /* ORVA_ORVA_H */
