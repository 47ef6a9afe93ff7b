// Rows as pieces.
//
// Passes read the source where it lies and write the destination where it lies, whole blocks at a
// time. What is left behind the last whole block of a row is converted with the pixels before it as
// one more block. Where that cannot be (narrow rows, odd widths of 4:2:2, V210, pictures converted
// in place) it is copied to where there is room for a block, completed by the pixel or pair that
// would follow, converted there, and the bytes that belong to the row are copied out. So no pass
// knows of an odd width or of a row's last bytes.
//
// Past the cache lines are written from their first byte on, and whole but for a row's last. Where
// a single row does not begin with a line, a first piece is written through the cache, and the next
// one begins at a line within it. Of several rows that begin with a line, what is left behind the
// last whole block is written through the cache.
//
// A piece is some pixels of one row, or of as many rows as are alike.
#include "picture/rows.hpp"

#include "picture/units.hpp"

#include <algorithm>
#include <cstring>
#include <optional>

namespace orva::picture {
namespace {

// Pixels of a strip: a multiple of every granularity, small enough for the first-level cache to
// hold all that a piece touches.
constexpr size_t stripPixels = 768;

size_t offsetOf(PlaneInfo plane, size_t x) { return unitsBefore(plane, x) * plane.unitBytes; }

size_t bytesOf(PlaneInfo plane, size_t pixels) { return bytesOfUnits(plane, pixels); }

// A piece of every plane of a layout, with room before it for the pixel that precedes it, and
// behind it for the pair that follows and for V210's last unit, which is read and written as a
// whole vector. What is not filled of it is computed with, but never gets out, so it may be
// anything.
template <size_t planes, size_t bytesPerPixel> class Strip {
public:
    Target target() {
        Target all = {};
        for (size_t i = 0; i < planes; ++i)
            all.plane[i] = bytes[i] + before;
        return all;
    }
    Source source() {
        Source all = {};
        for (size_t i = 0; i < planes; ++i)
            all.plane[i] = bytes[i] + before;
        return all;
    }

    void clear(const Shape& shape) {
        for (size_t i = 0; i < planes; ++i)
            if (shape.planes[i].unitBytes > 0)
                std::memset(bytes[i], 0, sizeof bytes[i]);
    }

private:
    static constexpr size_t before = 64, behind = 64;

    alignas(64) uint8_t bytes[planes][before + bytesPerPixel * stripPixels + behind];
};

// What a caller's rows hold, and samples.
using RowStrip = Strip<planeCount, 4>;
using SampleStrip = Strip<2, 2>;

// ---- Ends of rows ----

void repeatLastUnit(uint8_t* plane, size_t bytes, size_t unitBytes) {
    std::memcpy(plane + bytes, plane + bytes - unitBytes, unitBytes);
}

// Behind the last pixel of a row in a strip of samples: an odd row's luma and the last pair's
// chroma once more.
void extendSamples(const Target& strip, size_t pixels) {
    if (pixels % 2 != 0)
        repeatLastUnit(strip.plane[0], 2 * pixels, 2);
    repeatLastUnit(strip.plane[1], 4 * ((pixels + 1) / 2), 4);
}

// Copies a row's end to where it can be read as whole blocks, with the pixel or pair that precedes
// it.
void copyEnd(const Shape& shape, const Source& from, const Target& to, size_t pixels,
             bool withPrevious) {
    for (size_t i = 0; i < planeCount; ++i) {
        const PlaneInfo plane = shape.planes[i];
        const size_t bytes = bytesOf(plane, pixels);
        if (bytes == 0)
            continue;
        const size_t previous = withPrevious ? plane.unitBytes : 0;
        std::memcpy(to.plane[i] - previous, from.plane[i] - previous, previous + bytes);
        repeatLastUnit(to.plane[i], bytes, plane.unitBytes);
    }
    if (pixels % 2 != 0 && shape.lumaBytes > 0) {
        const PlaneInfo main = shape.planes[0];
        uint8_t* const pair = to.plane[0] + bytesOf(main, pixels) - main.unitBytes;
        std::memcpy(pair + shape.lumaOfPair[1], pair + shape.lumaOfPair[0], shape.lumaBytes);
    }
}

// V210's unit has zeros in place of the pairs that a row does not have. One pair ends with the
// first sample of its second word, two end with the second sample of the third.
void clearUnusedPairs(uint8_t* unit, size_t pixels) {
    const size_t pairs = (pixels + 1) / 2;
    if (pairs == 3)
        return;
    uint8_t* const word = unit + 4 * pairs;
    const uint32_t used = pairs == 1 ? 0x3FF : 0xFFFFF;
    for (size_t i = 0; i < 4; ++i)
        word[i] &= uint8_t(used >> (8 * i));
    std::memset(word + 4, 0, 12 - 4 * pairs);
}

// ---- Rows ----

class Rows {
public:
    Rows(const Plan& plan, const Kernels& kernels, const Area& area, StreamingKinds streaming)
        : plan(plan), kernels(kernels), area(area), streamsCopies(streaming.moves),
          // What is converted in place is not converted twice.
          piecesMayOverlap(!isInPlace()),
          streams((plan.onlyMoves() ? streaming.moves : streaming.computed) && piecesMayOverlap &&
                  (area.height == 1 || rowsBeginAtLines())),
          overlapsEnd(piecesMayOverlap && !(streams && area.height > 1) && plan.unitPixels < 6 &&
                      area.width >= kernels.block && area.width % plan.unitPixels == 0) {}

    void convert() {
        const size_t most = rowsAtOnce();
        for (size_t y = 0; y < area.height; y += most) {
            const size_t rows = std::min(most, area.height - y);
            if (plan.copiesColour)
                copyColour(y, rows);
            else if (plan.hasPasses())
                convertColour(y, rows);
            convertAlpha(y, rows);
        }
    }

private:
    static constexpr size_t line = 64;  // bytes

    template <class Byte> static Byte* rowOf(const PlaneRows<Byte>& plane, size_t y) {
        return plane.first + static_cast<std::ptrdiff_t>(y) * plane.pitch;
    }

    bool isInPlace() const {
        for (size_t i = 0; i < planeCount; ++i)
            if (bytesOf(plan.destination.planes[i], 1) > 0 &&
                area.destination.planes[i].first == area.source.planes[i].first)
                return true;
        return false;
    }

    // Whether what a piece holds passes through a strip.
    bool inStrips() const { return (plan.compute && plan.finish) || plan.prepare; }

    // Whether rows begin at cache lines, and their ends are little beside the rest. Where each row
    // also begins with a line that it shares or fills in part, writing past the cache costs what it
    // saves.
    bool rowsBeginAtLines() const {
        constexpr size_t longRow = 40 * line;
        const bool endWithBlocks = wholeFrom(0) == area.width;
        for (size_t i = 0; i < planeCount; ++i) {
            const PlaneInfo& plane = plan.destination.planes[i];
            if (plane.unitBytes > 0 && (uintptr_t(area.destination.planes[i].pitch) % line != 0 ||
                                        (!endWithBlocks && bytesOf(plane, area.width) < longRow)))
                return false;
        }
        return firstLine() == 0;
    }

    // The least x at which all planes of the first row of the destination are at cache lines, if
    // any.
    std::optional<size_t> firstLine() const {
        for (size_t x = 0; x < line * plan.unitPixels; x += plan.unitPixels) {
            uintptr_t bits = 0;
            for (size_t i = 0; i < planeCount; ++i)
                if (const PlaneInfo& plane = plan.destination.planes[i]; plane.unitBytes > 0)
                    bits |= reinterpret_cast<uintptr_t>(area.destination.planes[i].first) +
                            offsetOf(plane, x);
            if (bits % line == 0)
                return x;
        }
        return std::nullopt;
    }

    // Rows that are whole blocks are one piece; others are taken few at a time, so that what the
    // next piece needs is still in the cache.
    size_t rowsAtOnce() const {
        if (!plan.hasPasses())
            return area.height;
        const bool isWhole = wholeFrom(0) == area.width;
        if (!(isWhole || overlapsEnd) || (plan.toV210 && area.width % 6 != 0))
            return 1;
        return inStrips() || !isWhole ? std::max<size_t>(1, stripPixels / area.width) : area.height;
    }

    // Where the pieces of a row that begin at x and are whole blocks end. They begin where units
    // and blocks do; the last one may end where only a block does.
    size_t wholeFrom(size_t x) const {
        const size_t rest = (area.width - x) % plan.granularity;
        return rest % kernels.block == 0 ? area.width : area.width - rest;
    }

    // ---- Bytes ----

    void copy(uint8_t* to, const uint8_t* from, size_t bytes, bool streaming) const {
        if (to == from)
            return;
        if (streaming)
            kernels.stream(to, from, bytes);
        else
            std::memcpy(to, from, bytes);
    }

    void copyColour(size_t y, size_t rows) {
        for (size_t i = 0; i < planeCount; ++i)
            if (const size_t bytes = bytesOf(plan.source.planes[i], area.width))
                for (size_t row = y; row < y + rows; ++row)
                    copy(rowOf(area.destination.planes[i], row), rowOf(area.source.planes[i], row),
                         bytes, streamsCopies);
    }

    // ---- Colour ----

    void convertColour(size_t y, size_t rows) {
        size_t x = 0;
        bool streamsPieces = streams;
        if (streams && area.height == 1) {
            const std::optional<size_t> start = firstLine();
            const size_t lead = roundUp(start.value_or(0), plan.granularity);
            streamsPieces = start && lead < area.width;
            if (streamsPieces && lead > 0) {
                convertPiece(0, y, lead, 1, false);
                x = *start;
            }
        }
        const size_t whole = wholeFrom(x);
        while (x < whole) {
            const size_t pixels = inStrips() ? std::min(whole - x, stripPixels) : whole - x;
            convertPiece(x, y, pixels, rows, streamsPieces);
            x += pixels;
        }
        if (x < area.width && overlapsEnd)
            convertPiece(area.width - kernels.block, y, kernels.block, rows, false);
        else if (x < area.width)
            convertEnd(x, y);
    }

    // Where the rows of a piece lie.
    struct Places {
        Target target;
        std::ptrdiff_t step[planeCount];
    };

    Piece pieceAt(size_t x, size_t y, size_t pixels, size_t rows) const {
        Piece piece = {};
        piece.pixels = pixels;
        piece.rows = rows;
        piece.rowStart = x == 0;
        piece.rowEnd = x + pixels == area.width;
        for (size_t i = 0; i < planeCount; ++i)
            if (const PlaneInfo& plane = plan.source.planes[i]; plane.unitBytes > 0) {
                piece.from.plane[i] = rowOf(area.source.planes[i], y) + offsetOf(plane, x);
                piece.fromStep[i] = area.source.planes[i].pitch;
            }
        return piece;
    }

    Places destinationAt(size_t x, size_t y) const {
        Places places = {};
        for (size_t i = 0; i < planeCount; ++i)
            if (const PlaneInfo& plane = plan.destination.planes[i]; plane.unitBytes > 0) {
                places.target.plane[i] = rowOf(area.destination.planes[i], y) + offsetOf(plane, x);
                places.step[i] = area.destination.planes[i].pitch;
            }
        return places;
    }

    void convertPiece(size_t x, size_t y, size_t pixels, size_t rows, bool streaming) {
        makePiece(pieceAt(x, y, pixels, rows), destinationAt(x, y), streaming);
    }

    // The rest of one row, by way of padded copies.
    void convertEnd(size_t x, size_t y) {
        Piece piece = pieceAt(x, y, area.width - x, 1);
        // Whoever checks a program's memory shall not be told of bytes that do not count.
        if (!endIsDefined)
            end.clear(plan.source);
        endIsDefined = true;
        copyEnd(plan.source, piece.from, end.target(), piece.pixels, x > 0);
        piece.from = end.source();
        makePiece(piece, {out.target(), {}}, false);
        const Places destination = destinationAt(x, y);
        for (size_t i = 0; i < planeCount; ++i)
            if (const size_t bytes = bytesOf(plan.destination.planes[i], piece.pixels))
                std::memcpy(destination.target.plane[i], out.target().plane[i], bytes);
    }

    void makePiece(const Piece& piece, const Places& result, bool streaming) {
        runPasses(piece, result, streaming);
        if (plan.toV210 && piece.pixels % 6 != 0)
            clearUnusedPairs(result.target.plane[0] + piece.pixels / 6 * 16, piece.pixels % 6);
    }

    // What a pass made is the next one's source.
    void run(Pass pass, Piece& piece, const Places& to) const {
        piece.to = to.target;
        std::copy_n(to.step, planeCount, piece.toStep);
        pass(piece, plan.constants);
        for (size_t i = 0; i < planeCount; ++i)
            piece.from.plane[i] = to.target.plane[i];
        std::copy_n(to.step, planeCount, piece.fromStep);
    }

    void runPasses(Piece piece, const Places& result, bool streaming) {
        const auto wordBytes = static_cast<std::ptrdiff_t>(2 * piece.pixels);
        const Places samples = {computed.target(), {wordBytes, wordBytes, 0, 0}};
        if (plan.prepare)
            prepare(piece, {prepared.target(), {wordBytes, wordBytes, 0, 0}});
        piece.streams = streaming && !plan.finish;
        if (plan.compute)
            run(plan.compute, piece, plan.finish ? samples : result);
        piece.streams = streaming;
        if (plan.finish)
            run(plan.finish, piece, result);
    }

    // With the chroma of the pair behind the piece, where the maths wants it. Only V210, of which
    // whole units are read, is prepared for that.
    void prepare(Piece& piece, const Places& strip) const {
        const size_t pixels = piece.pixels;
        if (!piece.rowEnd && plan.readsNeighbours)
            piece.pixels += 2;
        run(plan.prepare, piece, strip);
        piece.pixels = pixels;
        if (piece.rowEnd && pixels % kernels.block != 0)
            extendSamples(strip.target, pixels);
    }

    // ---- Alpha beside the passes ----

    void convertAlpha(size_t y, size_t rows) {
        if (plan.alpha == AlphaStep::none)
            return;
        for (size_t row = y; row < y + rows; ++row) {
            uint8_t* const to = rowOf(area.destination.planes[alphaPlane], row);
            if (plan.alpha == AlphaStep::copy)
                copy(to, rowOf(area.source.planes[alphaPlane], row), area.width, streamsCopies);
            else
                fillAlpha(to);
        }
    }

    void fillAlpha(uint8_t* to) {
        if (!streamsCopies) {
            std::memset(to, plan.constants.alpha, area.width);
            return;
        }
        uint8_t* const bytes = out.target().plane[0];
        std::memset(bytes, plan.constants.alpha, stripPixels);
        for (size_t x = 0; x < area.width; x += stripPixels)
            copy(to + x, bytes, std::min(stripPixels, area.width - x), true);
    }

    const Plan& plan;
    const Kernels& kernels;
    const Area& area;
    const bool streamsCopies;
    const bool piecesMayOverlap;
    const bool streams;  // what passes write
    // The last piece is a whole block that overlaps the one before. Not where that has gone past
    // the cache, from where its lines would have to come back.
    const bool overlapsEnd;

    bool endIsDefined = false;
    RowStrip end, out;
    SampleStrip prepared, computed;
};

// Whether rows follow one another without gaps, so that they are one long row to passes that see
// each unit alone.
bool isOneRow(const Plan& plan, const Area& area) {
    if (plan.readsNeighbours)
        return false;
    const auto gapless = [&](const auto& rows, const PlaneInfo& plane) {
        return plane.unitBytes == 0 ||
               (area.width % plane.unitPixels == 0 &&
                rows.pitch == static_cast<std::ptrdiff_t>(bytesOf(plane, area.width)));
    };
    const PlaneInfo alpha = {1, 1};
    const bool alphaCopied = plan.alpha == AlphaStep::copy;
    for (size_t i = 0; i < planeCount; ++i)
        if (!gapless(area.source.planes[i], plan.source.planes[i]) ||
            !gapless(area.destination.planes[i], plan.destination.planes[i]))
            return false;
    return plan.alpha == AlphaStep::none ||
           (gapless(area.destination.planes[alphaPlane], alpha) &&
            (!alphaCopied || gapless(area.source.planes[alphaPlane], alpha)));
}

}  // namespace

void convertRows(const Plan& plan, const Kernels& kernels, const Area& given,
                 StreamingKinds streaming) {
    Area area = given;
    if (isOneRow(plan, area)) {
        area.width *= area.height;
        area.height = 1;
    }
    Rows(plan, kernels, area, streaming).convert();
    if (streaming.moves || streaming.computed)
        kernels.fence();
}

}  // namespace orva::picture
