// How passes go over a piece: row by row, whole blocks at a time.
#pragma once

#include "frame/memory_access.hpp"
#include "picture/samples.hpp"

namespace orva::ORVA_ISA {

using picture::Constants;
using picture::PixelKind;

constexpr size_t half = 8 * Wide::lanes, block = 2 * half;  // pixels

// What is computed goes past the cache where the piece says so. The choice is made anew for every
// store, which costs little beside the maths, and saves a second copy of each pass.
class ChosenStores {
public:
    ORVA_INLINE explicit ChosenStores(const Piece& piece) : streams(piece.streams) {}

    ORVA_INLINE void put(Wide value, uint8_t* p) const {
        bool chosen = streams;
        asm("" : "+r"(chosen));  // or the compiler makes a loop of each
        if (chosen)
            value.streamWhole(p);
        else
            value.store(p);
    }

private:
    bool streams;
};

// Calls convert(from, to) for every row.
template <class Convert> ORVA_INLINE void forRows(const Piece& piece, Convert convert) {
    Source from = piece.from;
    Target to = piece.to;
    for (size_t row = 0; row < piece.rows; ++row) {
        convert(from, to);
        for (size_t i = 0; i < planeCount; ++i) {
            from.plane[i] += piece.fromStep[i];
            to.plane[i] += piece.toStep[i];
        }
    }
}

// Asks for what comes some blocks later. The processor's own look-ahead is late where a block
// computes for as long as its memory takes to come.
ORVA_INLINE void fetchAhead(const uint8_t* at, size_t bytes) {
    constexpr size_t distance = 2048;  // bytes
    for (size_t i = 0; i < bytes; i += cacheLine)
        __builtin_prefetch(at + distance + i);
}

template <class Reader> ORVA_INLINE void fetchBlockAhead(const Source& from, size_t x) {
    size_t plane = 0;
    for (const size_t pairBytes : Reader::pairBytes) {
        fetchAhead(from.plane[plane] + x / 2 * pairBytes, block / 2 * pairBytes);
        ++plane;
    }
}

// Calls convert(from, to, x) for every block of every row.
template <class Convert> ORVA_INLINE void forBlocks(const Piece& piece, Convert convert) {
    forRows(piece, [&](const Source& from, const Target& to) {
        for (size_t x = 0; x < piece.pixels; x += block)
            convert(from, to, x);
    });
}

}  // namespace orva::ORVA_ISA
