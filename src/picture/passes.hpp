// What the engine is made of: passes over pieces of rows, and the tables that hold them, one
// per instruction set.
//
// A pass reads the planes of one layout and writes those of another. V210, whose unit of six pixels
// no block is made of, is read and written by passes of its own. Between them and the others it is
// samples, in strips of a few hundred pixels that stay in the first-level cache: a plane of luma
// words and one of words of (Cb, Cr) pairs, at 10-bit scale and on their way out not yet bounded.
//
// Passes convert whole blocks: they read and write as if the number of pixels were rounded up to
// Kernels::block. Only V210 is read and written in its own units of six pixels. The rows that a
// caller gives are never touched beyond their end: rows.cpp sees to that.
#pragma once

#include "picture/constants.hpp"

#include <cstddef>
#include <cstdint>

namespace orva::picture {

// The layouts of YCbCr.
enum Layout : uint8_t {
    uyvy,
    yuyv,
    uvyy,
    semiPlanar8,
    planar8,
    byteLayouts,  // how many of 8 bits there are
    semiPlanar10 = byteLayouts,
    planar10,
    v210,
    layoutCount
};

// Pixels of RGB: alpha behind the colours, no alpha, or alpha before them.
enum PixelKind : uint8_t { alphaLast, noAlpha, alphaFirst, pixelKinds };

// The planes of PlaneIndex; of alpha only where a pass takes it from there or puts it there.
struct Source {
    const uint8_t* plane[planeCount];
};
struct Target {
    uint8_t* plane[planeCount];
};

// Some pixels of some rows. A plane's next row begins a step behind the last one.
struct Piece {
    Source from;
    Target to;
    size_t pixels, rows;
    ptrdiff_t fromStep[planeCount], toStep[planeCount];
    bool rowStart;  // no pixel before the first one
    bool rowEnd;    // no pixel behind the last one; else the next pair's chroma may be read
    bool streams;   // past the cache, to rows that begin at multiples of 64 bytes
};

using Pass = void (*)(const Piece&, const Constants&);

struct Kernels {
    size_t block;           // pixels
    bool useWideRegisters;  // more than 128 bits

    // V210 to samples and samples, which are bounded here, to V210: exactly the units that hold the
    // pixels. To all other passes V210 is samples.
    Pass unpackV210, packV210;

    // YCbCr to pixels, and to YCbCr of another matrix, range or depth. Indexed by Chroma; pixels
    // also by whether their alpha comes from a plane.
    Pass toPixels[layoutCount][2][pixelKinds][2];
    Pass toYcbcr[layoutCount][2][layoutCount];
    // Pixels to YCbCr. Indexed by Chroma and by whether their alpha goes to a plane.
    Pass fromPixels[pixelKinds][2][layoutCount][2];

    // YCbCr to layouts of 10 bits, the samples as they are; null from a layout to itself.
    Pass toTenBits[layoutCount][layoutCount];

    // Samples of 8 bits moved from one layout to another; null between packed ones and from a
    // layout to itself.
    Pass move[byteLayouts][byteLayouts];
    // The four bytes of packed pairs in Constants::order.
    Pass reorderPairs;
    // RGB moved: the bytes of pixels in Constants::order. Indexed by whether they have 4, first of
    // the source; and by whether pixels of 4 bytes get their alpha from a plane, not Constants, or
    // give it to one.
    Pass repack[2][2][2];
    // Of pixels of 4 bytes, to a plane alone. Indexed by whether alpha is the first byte.
    Pass extractAlpha[2];

    // Copies bytes, whole cache lines of the destination past the cache.
    void (*stream)(uint8_t* to, const uint8_t* from, size_t bytes);
    // Orders what was streamed before every later store.
    void (*fence)();
};

}  // namespace orva::picture
