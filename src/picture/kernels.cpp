// The passes: loops over whole blocks of rows, composed of readers, maths and writers, and the
// table of one instruction set.
#include "frame/memory_access.hpp"
#include "picture/maths.hpp"
#include "picture/pixels.hpp"

namespace orva::ORVA_ISA {
namespace {

using picture::Constants;
using picture::Pass;
using picture::PixelKind;

constexpr size_t half = 8 * Wide::lanes, block = 2 * half;  // pixels

constexpr unsigned bytesOf(PixelKind kind) { return kind == PixelKind::noAlpha ? 3 : 4; }

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

// ---- From YCbCr ----

// Calls put(to, x, first, second) with what convert makes of the samples of each half of a block.
template <Layout layout, class Up, class Convert, class Put>
ORVA_INLINE void fromYcbcr(const Piece& piece, Convert convert, Put put) {
    using In = Reader<layout>;
    const auto convertBlock = [&]<bool last>(const Source& from, const Target& to, size_t x) {
        const auto first = convert(In::template luma<Wide>(from, x),
                                   Up::template take<In, false>(from, x), from, x);
        const auto second = convert(In::template luma<Wide>(from, x + half),
                                    Up::template take<In, last>(from, x + half), from, x + half);
        put(to, x, first, second);
        fetchBlockAhead<In>(from, x);
    };
    const size_t inner = piece.rowEnd ? (piece.pixels - 1) / block * block : piece.pixels;
    forRows(piece, [&](const Source& from, const Target& to) {
        for (size_t x = 0; x < inner; x += block)
            convertBlock.template operator()<false>(from, to, x);
        if (piece.rowEnd)
            convertBlock.template operator()<true>(from, to, inner);
    });
}

template <Layout layout, class Up, PixelKind kind, bool alphaPlane>
void toPixels(const Piece& piece, const Constants& c) {
    const ToPixelsMath<kind == PixelKind::alphaFirst> math(c);
    const Wide constantAlpha = Wide::all16(c.alpha);
    fromYcbcr<layout, Up>(
        piece,
        [&](Wide luma, const SitedChroma& chroma, const Source& from, size_t x) {
            return math(luma, chroma,
                        alphaPlane ? Wide::loadBytesAsWords(from.plane[orva::alphaPlane] + x)
                                   : constantAlpha);
        },
        [](const Target& to, size_t x, const Pixels8<Wide>& a, const Pixels8<Wide>& b) {
            putPixels<bytesOf(kind)>({a.a, a.b, b.a, b.b}, to.plane[0], x);
        });
}

template <Layout layout, class Up> void toSamples(const Piece& piece, const Constants& c) {
    const ToSamplesMath math(c);
    fromYcbcr<layout, Up>(
        piece,
        [&](Wide luma, const SitedChroma& chroma, const Source&, size_t) {
            return math(luma, chroma);
        },
        [](const Target& to, size_t x, const Words<Wide>& first, const Words<Wide>& second) {
            Writer<Layout::v210>::put(WordsPair<Wide>{first, second}, to, x);
        });
}

template <Layout layout> void unpack(const Piece& piece, const Constants&) {
    using In = Reader<layout>;
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        const auto take = [&](size_t at) {
            return Words<Wide>{In::template luma<Wide>(from, at),
                               In::template chroma<Wide>(from, at)};
        };
        fetchBlockAhead<In>(from, x);
        Writer<Layout::v210>::put(WordsPair<Wide>{take(x), take(x + half)}, to, x);
    });
}

// ---- From pixels ----

template <PixelKind kind, class Down, Layout layout, bool alphaPlane>
void fromPixels(const Piece& piece, const Constants& c) {
    constexpr unsigned bytes = bytesOf(kind);
    const FromPixelsMath < layout<Layout::byteLayouts ? 8 : 10> math(c);
    forRows(piece, [&](const Source& from, const Target& to) {
        const uint8_t* const first = from.plane[0];
        Split before = splitPixel(pixelAt<bytes>(piece.rowStart ? first : first - bytes));
        for (size_t x = 0; x < piece.pixels; x += block) {
            const Pixels16<Wide> in = takePixels<bytes>(first, x);
            const auto a = math.template operator()<Down>({in.a, in.b}, before);
            const auto b = math.template operator()<Down>({in.c, in.d}, before);
            Writer<layout>::put(WordsPair<Wide>{a, b}, to, x);
            fetchAhead(first + bytes * x, bytes * block);
            if constexpr (alphaPlane)
                putAlpha<kind == PixelKind::alphaFirst>(in, to, x);
        }
    });
}

// ---- From samples ----

template <Layout layout> void fromSamples(const Piece& piece, const Constants&) {
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        const auto take = [&](size_t at) {
            return Words<Wide>{Wide::load(from.plane[0] + 2 * at),
                               Wide::load(from.plane[1] + 2 * at)};
        };
        Writer<layout>::put(WordsPair<Wide>{take(x), take(x + half)}, to, x);
    });
}

// ---- V210 ----

constexpr size_t unitBytes = 16, wordBytes = 12;  // of six pixels, packed and as words of each kind

// Calls many(from, to, unit) for 4 * lanes units and one(from, to, unit) for the rest of those that
// hold the pixels: V210's rows are whole units, of which none further on is touched.
template <class Many, class One> ORVA_INLINE void forUnits(const Piece& piece, Many many, One one) {
    const size_t units = (piece.pixels + 5) / 6;
    forRows(piece, [&](const Source& from, const Target& to) {
        size_t unit = 0;
        for (; unit + 4 * Wide::lanes <= units; unit += 4 * Wide::lanes)
            many(from, to, unit);
        for (; unit < units; ++unit)
            one(from, to, unit);
    });
}

template <> void unpack<Layout::v210>(const Piece& piece, const Constants&) {
    const auto put = [](const Twelves<Wide>& words, uint8_t* to) {
        words.first.store(to);
        words.second.store(to + Wide::bytes);
        words.third.store(to + 2 * Wide::bytes);
    };
    forUnits(
        piece,
        [&](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t i) {
                return unpackTenBits(
                    Wide::load(from.plane[0] + unitBytes * unit + Wide::bytes * i));
            };
            const TenBitLanes<Wide> a = take(0), b = take(1), c = take(2), d = take(3);
            fetchAhead(from.plane[0] + unitBytes * unit, 4 * Wide::bytes);
            put(joinTwelves(a.luma, b.luma, c.luma, d.luma), to.plane[0] + wordBytes * unit);
            put(joinTwelves(a.chroma, b.chroma, c.chroma, d.chroma),
                to.plane[1] + wordBytes * unit);
        },
        [](const Source& from, const Target& to, size_t unit) {
            const auto words = unpackTenBits(Vec128::load(from.plane[0] + unitBytes * unit));
            words.luma.store(to.plane[0] + wordBytes * unit);
            words.chroma.store(to.plane[1] + wordBytes * unit);
        });
}

template <> void fromSamples<Layout::v210>(const Piece& piece, const Constants&) {
    forUnits(
        piece,
        [](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t plane) {
                const uint8_t* const words = from.plane[plane] + wordBytes * unit;
                const auto bounded = [&](size_t i) {
                    return TenBits<4>::bounded(Wide::load(words + Wide::bytes * i));
                };
                return spreadTwelves(Twelves<Wide>{bounded(0), bounded(1), bounded(2)});
            };
            const TwelvesInLanes<Wide> luma = take(0), chroma = take(1);
            uint8_t* const units = to.plane[0] + unitBytes * unit;
            packTenBits<Wide>({luma.a, chroma.a}).store(units);
            packTenBits<Wide>({luma.b, chroma.b}).store(units + Wide::bytes);
            packTenBits<Wide>({luma.c, chroma.c}).store(units + 2 * Wide::bytes);
            packTenBits<Wide>({luma.d, chroma.d}).store(units + 3 * Wide::bytes);
        },
        [](const Source& from, const Target& to, size_t unit) {
            const auto take = [&](size_t plane) {
                return TenBits<4>::bounded(Vec128::load(from.plane[plane] + wordBytes * unit));
            };
            packTenBits<Vec128>({take(0), take(1)}).store(to.plane[0] + unitBytes * unit);
        });
}

// ---- What only moves ----

template <Layout source, Layout destination> void move(const Piece& piece, const Constants&) {
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        ByteWriter<destination>::put(ByteReader<source>::template take<Wide>(from, x), to, x);
    });
}

void reorderPairs(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        for (const size_t i : {2 * x, 2 * x + Wide::bytes})
            order(Wide::load(from.plane[0] + i)).store(to.plane[0] + i);
    });
}

template <unsigned source, unsigned destination, bool alphaPlane>
void repack(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    const Wide constantAlpha = Wide::all32(uint32_t(c.alpha) << 24);
    forBlocks(piece, [&](const Source& from, const Target& to, size_t x) {
        Pixels16<Wide> pixels = takePixels<source>(from.plane[0], x);
        if constexpr (source < destination)
            pixels = withAlpha(pixels, alphaPlane ? alphaInPixels(from, x)
                                                  : Pixels16<Wide>{constantAlpha, constantAlpha,
                                                                   constantAlpha, constantAlpha});
        const Pixels16<Wide> ordered{order(pixels.a), order(pixels.b), order(pixels.c),
                                     order(pixels.d)};
        putPixels<destination>(ordered, to.plane[0], x);
        if constexpr (alphaPlane && source > destination)
            putAlpha<false>(ordered, to, x);
    });
}

template <bool alphaFirst> void extractAlpha(const Piece& piece, const Constants&) {
    forBlocks(piece, [](const Source& from, const Target& to, size_t x) {
        putAlpha<alphaFirst>(takePixels<4>(from.plane[0], x), to, x);
    });
}

// ---- Memory ----

void stream(uint8_t* to, const uint8_t* from, size_t bytes) {
    size_t at = -reinterpret_cast<uintptr_t>(to) % cacheLine;
    if (bytes < at + cacheLine) {
        __builtin_memcpy(to, from, bytes);
        return;
    }
    __builtin_memcpy(to, from, at);
    for (; at + cacheLine <= bytes; at += cacheLine)
        for (size_t i = at; i < at + cacheLine; i += Wide::bytes)
            Wide::load(from + i).stream(to + i);
    __builtin_memcpy(to + at, from + at, bytes - at);
}

// ---- The table ----

template <size_t... layouts> struct Layouts {};

// Whether a format of this layout may have an alpha plane beside it.
constexpr bool mayHaveAlpha(Layout layout) { return layout <= Layout::semiPlanar8; }

template <Layout layout, class Up, PixelKind kind>
constexpr void addToPixels(picture::Kernels& k, size_t chroma) {
    k.toPixels[layout][chroma][kind][false] = toPixels<layout, Up, kind, false>;
    if constexpr (mayHaveAlpha(layout) && kind != PixelKind::noAlpha)
        k.toPixels[layout][chroma][kind][true] = toPixels<layout, Up, kind, true>;
}

template <PixelKind kind, class Down, Layout layout>
constexpr void addFromPixels(picture::Kernels& k, size_t chroma) {
    k.fromPixels[kind][chroma][layout][false] = fromPixels<kind, Down, layout, false>;
    if constexpr (mayHaveAlpha(layout) && kind != PixelKind::noAlpha)
        k.fromPixels[kind][chroma][layout][true] = fromPixels<kind, Down, layout, true>;
}

template <Layout layout, class Up, class Down>
constexpr void addLayout(picture::Kernels& k, size_t chroma) {
    addToPixels<layout, Up, PixelKind::alphaLast>(k, chroma);
    addToPixels<layout, Up, PixelKind::noAlpha>(k, chroma);
    addToPixels<layout, Up, PixelKind::alphaFirst>(k, chroma);
    addFromPixels<PixelKind::alphaLast, Down, layout>(k, chroma);
    addFromPixels<PixelKind::noAlpha, Down, layout>(k, chroma);
    addFromPixels<PixelKind::alphaFirst, Down, layout>(k, chroma);
    k.toSamples[layout][chroma] = toSamples<layout, Up>;
}

template <Layout from, Layout to> constexpr void addMove(picture::Kernels& k) {
    constexpr bool packed = from <= Layout::uvyy && to <= Layout::uvyy;
    if constexpr (from != to && !packed)
        k.move[from][to] = move<from, to>;
}
template <Layout from, size_t... to>
constexpr void addMovesFrom(picture::Kernels& k, Layouts<to...>) {
    (addMove<from, Layout(to)>(k), ...);
}

template <size_t... all, size_t... bytes>
constexpr picture::Kernels makeKernels(Layouts<all...>, Layouts<bytes...>) {
    picture::Kernels k{};
    k.block = block;
    (addLayout<Layout(all), CositedUp, CositedDown>(k, size_t(Chroma::cosited)), ...);
    (addLayout<Layout(all), NearestUp, NearestDown>(k, size_t(Chroma::nearest)), ...);
    ((k.unpack[all] = unpack<Layout(all)>), ...);
    ((k.fromSamples[all] = fromSamples<Layout(all)>), ...);
    (addMovesFrom<Layout(bytes)>(k, Layouts<bytes...>()), ...);
    k.reorderPairs = reorderPairs;
    k.repack[0][0][0] = repack<3, 3, false>;
    k.repack[0][1][0] = repack<3, 4, false>;
    k.repack[0][1][1] = repack<3, 4, true>;
    k.repack[1][0][0] = repack<4, 3, false>;
    k.repack[1][0][1] = repack<4, 3, true>;
    k.repack[1][1][0] = repack<4, 4, false>;
    k.extractAlpha[0] = extractAlpha<false>;
    k.extractAlpha[1] = extractAlpha<true>;
    k.stream = stream;
    k.fence = fence;
    return k;
}

}  // namespace

extern const picture::Kernels pictureKernels;
constinit const picture::Kernels pictureKernels =
    makeKernels(Layouts<0, 1, 2, 3, 4, 5, 6, 7>(), Layouts<0, 1, 2, 3, 4>());

}  // namespace orva::ORVA_ISA
