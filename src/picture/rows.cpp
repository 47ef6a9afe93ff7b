// Rows as pieces.
//
// Most of a row is direct: passes read the source where it lies and write the destination where it
// lies, whole blocks at a time. What is left behind the last whole block is copied to where there
// is room for a block, completed by the pixel or pair that would follow, converted there, and the
// bytes that belong to the row are copied out. So no pass knows of an odd width or of a row's last
// bytes. Destinations that are written past the cache are copied out from there as well, piece by
// piece.
#include "picture/rows.hpp"

#include <algorithm>
#include <cstring>

namespace orva::picture {
namespace {

// Pixels of a strip: a multiple of every granularity, small enough for the first-level cache to
// hold all that a piece touches.
constexpr size_t stripPixels = 768;

// Beyond a piece's last pixel: a block that it may be short of, and a vector behind that.
constexpr size_t margin = 4 * 64;  // bytes

// A piece of every plane of a layout, with room before it for the pixel that precedes it. What lies
// behind the piece is computed with, but never gets out, so it may be anything.
class Strip {
public:
    Target target() { return {{bytes[0] + before, bytes[1] + before, bytes[2] + before}}; }
    Source source() const { return {{bytes[0] + before, bytes[1] + before, bytes[2] + before}}; }

private:
    static constexpr size_t before = 64;

    // A plane takes at most 4 bytes per pixel.
    alignas(64) uint8_t bytes[3][before + 4 * stripPixels + margin];
};

size_t bytesOf(PlaneInfo plane, size_t pixels) {
    return plane.unitBytes == 0
               ? 0
               : (pixels + plane.unitPixels - 1) / plane.unitPixels * plane.unitBytes;
}

// Of a row's pixel x, the first of a unit.
size_t offsetOf(PlaneInfo plane, size_t x) {
    return plane.unitBytes == 0 ? 0 : x / plane.unitPixels * plane.unitBytes;
}

void repeatLastUnit(uint8_t* plane, size_t bytes, size_t unitBytes) {
    std::memcpy(plane + bytes, plane + bytes - unitBytes, unitBytes);
}

// Behind the last of a row's pixels in a strip: the pixel, or the luma of an odd row and the pair's
// chroma, once more.
void extendPixels(const Target& strip, size_t pixels) {
    repeatLastUnit(strip.plane[0], 4 * pixels, 4);
}
void extendSamples(const Target& strip, size_t pixels) {
    if (pixels % 2 != 0)
        repeatLastUnit(strip.plane[0], 2 * pixels, 2);
    repeatLastUnit(strip.plane[1], 4 * ((pixels + 1) / 2), 4);
}

// Copies a row's end to where it can be read as whole blocks.
void copyEnd(const Shape& shape, const Source& from, const Target& to, size_t pixels,
             bool withPrevious) {
    for (size_t i = 0; i < 3; ++i) {
        const PlaneInfo plane = shape.planes[i];
        const size_t bytes = bytesOf(plane, pixels);
        if (bytes == 0)
            continue;
        const size_t before = withPrevious ? plane.unitBytes : 0;
        std::memcpy(to.plane[i] - before, from.plane[i] - before, before + bytes);
        repeatLastUnit(to.plane[i], bytes, plane.unitBytes);
    }
    if (pixels % 2 != 0 && shape.lumaBytes > 0) {
        const PlaneInfo main = shape.planes[0];
        uint8_t* const pair = to.plane[0] + bytesOf(main, pixels) - main.unitBytes;
        std::memcpy(pair + shape.lumaOfPair[1], pair + shape.lumaOfPair[0], shape.lumaBytes);
    }
}

// V210's unit has zeros in place of the pairs that a row does not have. One pair ends with the first
// sample of its second word, two end with the second sample of the third.
void clearUnusedPairs(uint8_t* unit, size_t pixels) {
    const size_t pairs = (pixels + 1) / 2;
    std::memset(unit + 4 * pairs + 4, 0, 12 - 4 * pairs);
    uint8_t* const word = unit + 4 * pairs;
    const uint32_t used = pairs == 1 ? 0x3FF : 0xFFFFF;
    for (size_t i = 0; i < 4; ++i)
        word[i] &= uint8_t(used >> (8 * i));
}

class Rows {
public:
    Rows(const Plan& plan, const Kernels& kernels, const Area& area, bool streaming)
        : plan(plan), kernels(kernels), area(area), streaming(streaming) {}

    void convert() {
        for (size_t y = 0; y < area.height; ++y) {
            if (plan.copiesColour)
                copyColour(y);
            else if (plan.finish || plan.compute)
                convertColour(y);
            convertAlpha(y);
        }
    }

private:
    template <class Byte> static Byte* rowOf(const PlaneRows<Byte>& plane, size_t y) {
        return plane.first + static_cast<std::ptrdiff_t>(y) * plane.pitch;
    }

    // ---- Bytes ----

    void copy(uint8_t* to, const uint8_t* from, size_t bytes) {
        if (streaming)
            kernels.stream(to, from, bytes);
        else if (to != from)
            std::memcpy(to, from, bytes);
    }

    void copyColour(size_t y) {
        for (size_t i = 0; i < 3; ++i)
            if (const size_t bytes = bytesOf(plan.source.planes[i], area.width))
                copy(rowOf(area.destination.colour[i], y), rowOf(area.source.colour[i], y), bytes);
    }

    // ---- Colour ----

    void convertColour(size_t y) {
        for (size_t x = 0; x < area.width;) {
            const size_t pixels = pieceAt(x);
            convertPiece(x, y, pixels);
            x += pixels;
        }
    }

    // Pieces are whole blocks, but for a row's last one.
    size_t pieceAt(size_t x) const {
        const bool strips =
            (plan.prepare != nullptr) + (plan.compute != nullptr) + (plan.finish != nullptr) > 1;
        const size_t rest = area.width - x;
        const size_t most = strips || streaming ? std::min(rest, stripPixels) : rest;
        return most < plan.granularity ? most : most - most % plan.granularity;
    }

    void convertPiece(size_t x, size_t y, size_t pixels) {
        Piece piece{{}, {}, pixels, x == 0, x + pixels == area.width};
        Target destination;
        for (size_t i = 0; i < 3; ++i) {
            const PlaneInfo &from = plan.source.planes[i], &to = plan.destination.planes[i];
            piece.from.plane[i] =
                from.unitBytes ? rowOf(area.source.colour[i], y) + offsetOf(from, x) : nullptr;
            destination.plane[i] =
                to.unitBytes ? rowOf(area.destination.colour[i], y) + offsetOf(to, x) : nullptr;
        }
        const bool whole = pixels % plan.granularity == 0;
        if (!whole) {
            const bool withPrevious = x > 0 && !plan.prepare && plan.stripOfPixels;
            copyEnd(plan.source, piece.from, end.target(), pixels, withPrevious);
            piece.from = end.source();
        }
        const bool direct = whole && !streaming;
        const Target result = direct ? destination : out.target();
        runPasses(piece, result);
        if (plan.toV210 && pixels % 6 != 0)
            clearUnusedPairs(result.plane[0] + pixels / 6 * 16, pixels % 6);
        if (plan.alpha == AlphaStep::merge) {
            const Source alpha{{rowOf(area.source.alpha, y) + x, nullptr, nullptr}};
            kernels.mergeAlpha[plan.alphaFirst]({alpha, result, pixels, false, false},
                                                plan.constants);
        }
        for (size_t i = 0; !direct && i < 3; ++i)
            if (const size_t bytes = bytesOf(plan.destination.planes[i], pixels))
                copy(destination.plane[i], result.plane[i], bytes);
    }

    void runPasses(Piece piece, const Target& result) {
        const auto run = [&](Pass pass, const Target& to) {
            piece.to = to;
            pass(piece, plan.constants);
            piece.from = {{to.plane[0], to.plane[1], to.plane[2]}};
        };
        if (plan.prepare)
            prepare(piece);
        if (plan.compute)
            run(plan.compute, plan.finish ? computed.target() : result);
        if (plan.finish)
            run(plan.finish, result);
    }

    // Fills the first strip, with what its pixels' neighbours need on either side.
    void prepare(Piece& piece) {
        const Target strip = prepared.target();
        const size_t pixels = piece.pixels;
        if (plan.stripOfPixels && !piece.rowStart)
            std::memcpy(strip.plane[0] - 4, strip.plane[0] + 4 * (lastPrepared - 1), 4);
        lastPrepared = pixels;
        // Chroma of the pair behind the piece.
        if (!plan.stripOfPixels && !piece.rowEnd)
            piece.pixels += 2;
        piece.to = strip;
        plan.prepare(piece, plan.constants);
        piece.pixels = pixels;
        if (piece.rowEnd)
            plan.stripOfPixels ? extendPixels(strip, pixels) : extendSamples(strip, pixels);
        piece.from = prepared.source();
    }

    // ---- Alpha beside the colours ----

    void convertAlpha(size_t y) {
        if (plan.alpha == AlphaStep::none || plan.alpha == AlphaStep::merge)
            return;
        uint8_t* const to = rowOf(area.destination.alpha, y);
        if (plan.alpha == AlphaStep::copy)
            copy(to, rowOf(area.source.alpha, y), area.width);
        else if (plan.alpha == AlphaStep::fill && !streaming)
            std::memset(to, plan.constants.alpha, area.width);
        else
            makeAlpha(to, y);
    }

    void makeAlpha(uint8_t* to, size_t y) {
        const size_t most = streaming ? stripPixels : area.width;
        for (size_t x = 0; x < area.width; x += most) {
            const size_t pixels = std::min(most, area.width - x);
            const Target result = streaming ? out.target() : Target{{to + x, nullptr, nullptr}};
            if (plan.alpha == AlphaStep::fill) {
                std::memset(result.plane[0], plan.constants.alpha, pixels);
            } else {
                const Source from{{rowOf(area.source.colour[0], y) + 4 * x, nullptr, nullptr}};
                kernels.extractAlpha[plan.alphaFirst]({from, result, pixels, false, false},
                                                      plan.constants);
            }
            if (streaming)
                copy(to + x, result.plane[0], pixels);
        }
    }

    const Plan& plan;
    const Kernels& kernels;
    const Area& area;
    const bool streaming;

    Strip end, prepared, computed, out;
    size_t lastPrepared = 0;
};

// Whether rows follow one another without gaps, so that they are one long row to passes that see
// each unit alone.
bool isOneRow(const Plan& plan, const Area& area) {
    const auto gapless = [&](const auto& rows, const PlaneInfo& plane) {
        return plane.unitBytes == 0 ||
               (area.width % plane.unitPixels == 0 &&
                rows.pitch == static_cast<std::ptrdiff_t>(bytesOf(plane, area.width)));
    };
    bool all = !plan.readsNeighbours;
    for (size_t i = 0; i < 3; ++i)
        all = all && gapless(area.source.colour[i], plan.source.planes[i]) &&
              gapless(area.destination.colour[i], plan.destination.planes[i]);
    const PlaneInfo alpha{1, 1};
    const bool toPlane = plan.alpha == AlphaStep::copy || plan.alpha == AlphaStep::fill ||
                         plan.alpha == AlphaStep::extract;
    const bool fromPlane = plan.alpha == AlphaStep::copy || plan.alpha == AlphaStep::merge;
    return all && (!toPlane || gapless(area.destination.alpha, alpha)) &&
           (!fromPlane || gapless(area.source.alpha, alpha));
}

}  // namespace

void convertRows(const Plan& plan, const Kernels& kernels, const Area& given, bool streaming) {
    Area area = given;
    if (isOneRow(plan, area)) {
        area.width *= area.height;
        area.height = 1;
    }
    Rows(plan, kernels, area, streaming).convert();
    if (streaming)
        kernels.fence();
}

}  // namespace orva::picture
