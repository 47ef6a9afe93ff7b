// What the engine is made of: passes over a piece of one row, and the tables that hold them, one
// per instruction set.
//
// A pass reads the planes of one layout and writes those of another. Two layouts exist only between
// passes, in strips of a few hundred pixels that stay in the first-level cache:
//
//     pixels    4 bytes per pixel, the alpha last, B and R in the order of whichever side is RGB
//     samples   words: a plane of luma, and one of (Cb, Cr) pairs, 10-bit scale or the
//     destination's
//               depth, not yet bounded
//
// All passes convert whole blocks, so they round the number of pixels up to Kernels::block and may
// read and write as much more; the unit of V210 is an exception, see below. The rows that a caller
// gives are never touched beyond their end: what is left of a row behind its last whole block
// passes through padded copies (rows.cpp).
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

struct Source {
    const uint8_t* plane[3];
};
struct Target {
    uint8_t* plane[3];
};

struct Piece {
    Source from;
    Target to;
    size_t pixels;
    bool rowStart;  // no pixel before the first one
    bool rowEnd;    // no pixel behind the last one; else the next pair's chroma may be read
};

using Pass = void (*)(const Piece&, const Constants&);

struct Kernels {
    size_t block;  // pixels

    // YCbCr to pixels, and to samples of another matrix, range or depth. Of V210, from samples.
    // Indexed by Chroma. To 3 bytes per pixel without alpha as well.
    Pass toPixels[layoutCount][2];
    Pass toPixels24[layoutCount][2];
    Pass toSamples[layoutCount][2];
    // Pixels to samples. Indexed by Chroma. Cosited, a pixel before the first one is read unless it
    // is the row's first.
    Pass fromPixels[2];

    // V210's units to samples of 10 bits; exactly the units that hold the pixels are read.
    Pass unpackV210;
    // Samples to what a destination holds, bounded. Of V210, exactly the units are written.
    Pass fromSamples[layoutCount];

    // Samples of 8 bits moved from one layout to another; null between packed ones.
    Pass move[byteLayouts][byteLayouts];
    // The four bytes of packed pairs in Constants::order.
    Pass reorderPairs;
    // RGB moved: the bytes of pixels in Constants::order, alpha from Constants where pixels of 3
    // bytes become pixels of 4. Indexed by whether they have 4, first of the source.
    Pass repack[2][2];

    // Alpha bytes of exactly this many pixels from plane 0 into the pixels there, and out of them.
    // Indexed by whether alpha is a pixel's first byte.
    Pass mergeAlpha[2], extractAlpha[2];

    // Copies bytes, whole cache lines of the destination past the cache.
    void (*stream)(uint8_t* to, const uint8_t* from, size_t bytes);
    // Orders what was streamed before everything that follows.
    void (*fence)();
};

}  // namespace orva::picture
