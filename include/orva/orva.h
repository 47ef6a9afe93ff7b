/* ORVA: pixel-format converters for uncompressed video frames.
 *
 * Every conversion takes one pointer to a conversion descriptor, reads the source planes and writes
 * the destination planes before it returns. The library keeps no state between calls, allocates
 * nothing and reports no errors: a descriptor that breaks the contract below faults or writes wrong
 * memory. <orva/convert.hpp> offers the same conversions with every argument checked.
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
#define ORVA_API __attribute__((visibility("default")))
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
 * Y8PUV8I and address line pairs.
 */
typedef struct OrvaConversionDescriptor {
    const void* srcData;   /* first byte of the source's (main or luma) plane */
    uint32_t srcWidth;     /* not read */
    uint32_t srcHeight;    /* number of rows; 0 converts nothing */
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
 * - The fast kernel runs when the fields named under "fast when" are multiples of the numbers
 * beside them, else the general kernel, which takes any width. Both give the same bytes except
 * where a text says so.
 * - The source may have any address.
 * - In 4:2:2 formats an odd last pixel is not converted and the pointers do not pass over it.
 * - streamingStores changes how the destination is written, never what. No store fence is issued:
 *   a caller that hands the frame to another thread issues one.
 * - srcHeight 0 or dstWidth 0 writes nothing.
 * - Source and destination must not overlap.
 * - Calls may run on any number of threads at once if their destinations do not overlap.
 */

/* ---- Alpha planes -------------------------------------------------------------------------------
 *
 * Fast when dstData 16, dstPitch 32, dstWidth 32.
 */

/* Copies an alpha plane (main planes of both sides).
 *
 * The source must be 16-byte aligned wherever the kernel loads it aligned: in every row of the fast
 * kernel; in the general kernel without streamingStores, source and destination rows must have the
 * same address modulo 16 when a row holds a whole block of 32 bytes behind its lead-in.
 */
ORVA_API void ORVA_CALL ORVA_SSE2_A8P_A8P_EX(const OrvaConversionDescriptor* conversion);

/* Fills an alpha plane (the destination's main plane) with the low byte of alphaValue. */
ORVA_API void ORVA_CALL ORVA_SSE2_A8C_A8P_EX(const OrvaConversionDescriptor* conversion);

/* ---- YCbCr 4:2:2 to BGR32I ----------------------------------------------------------------------
 *
 * The matrix is dstColorSpace's; fullRange and clampStudio apply to the source's luma. Chroma is
 * repeated over its pixel pair, not interpolated. docs/arithmetic.md gives every step.
 *
 * The fourth byte is alphaValue saturated to 0..255 (its low 16 bits taken as signed), or, for a
 * source with A8P, the pixel's alpha byte.
 *
 * The general kernel converts the pixels before a row's first 16-byte boundary and behind its last
 * whole block of 8 as single pairs, and rows of less than 16 pixels wholly so. In those pairs
 * - the constant fourth byte is 0 for the even pixel and, for the odd one, 255 if the low byte of
 *   alphaValue is 1..127, else 0;
 * - the alpha plane is read at the row's alpha start + pixel index, but the running alpha pointer
 *   does not move: the blocks of a row use the alpha bytes from the row's start on, and a row moves
 *   the pointer by 8 per block and by srcPlane2RowGap.
 *
 * Destination rows must be 8-byte aligned. In studio range without clampStudio a luma below 16
 * wraps to near white in even pixels and is black in odd ones.
 */

/* Fast when srcData 16, srcPitch 16, dstData 16, dstPitch 32, dstWidth 8. */
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16I_BGR32I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_YUYV16IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16IA8P_BGR32I_EX(const OrvaConversionDescriptor* conversion);

/* Fast when srcData 16, srcPitch 32, dstData 16, dstPitch 16, dstWidth 8.
 * kernelMode must not be 1 to 4. */
ORVA_API void ORVA_CALL ORVA_SSE2_UYVY16I_BGR32I_EX(const OrvaConversionDescriptor* conversion);

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
