// The passes: loops over whole blocks of a piece, composed of readers, maths and writers, and the
// table of one instruction set.
#include "frame/memory_access.hpp"
#include "picture/maths.hpp"
#include "picture/pixels.hpp"

namespace orva::ORVA_ISA {
namespace {

using picture::Constants;
using picture::Pass;

constexpr size_t half = 8 * Wide::lanes, block = 2 * half;  // pixels

template <class Step> ORVA_INLINE void forBlocks(const Piece& piece, Step step) {
    for (size_t x = 0; x < piece.pixels; x += block)
        step(x);
}

// ---- From YCbCr: samples of two vectors, then what the maths makes of them ----

template <class Reader, class Up, class Math, class Put>
ORVA_INLINE void fromYcbcr(const Piece& piece, const Math& math, Put put) {
    const auto convert = [&]<bool last>(size_t x) {
        const Source& from = piece.from;
        const auto first =
            math(Reader::template luma<Wide>(from, x), Up::template take<Reader, false>(from, x));
        const auto second = math(Reader::template luma<Wide>(from, x + half),
                                 Up::template take<Reader, last>(from, x + half));
        put(x, first, second);
    };
    const size_t inner = piece.rowEnd ? (piece.pixels - 1) / block * block : piece.pixels;
    for (size_t x = 0; x < inner; x += block)
        convert.template operator()<false>(x);
    if (piece.rowEnd)
        convert.template operator()<true>(inner);
}

template <Layout layout, class Up, class Writer>
void toPixels(const Piece& piece, const Constants& c) {
    fromYcbcr<Reader<layout>, Up>(
        piece, ToPixelsMath(c),
        [to = piece.to](size_t x, const Pixels8<Wide>& a, const Pixels8<Wide>& b) {
            Writer::put(Pixels16<Wide>{a.a, a.b, b.a, b.b}, to, x);
        });
}

ORVA_INLINE void putStrip(const Words<Wide>& words, const Target& to, size_t x) {
    words.luma.store(to.plane[0] + 2 * x);
    words.chroma.store(to.plane[1] + 2 * x);
}

template <Layout layout, class Up> void toSamples(const Piece& piece, const Constants& c) {
    fromYcbcr<Reader<layout>, Up>(
        piece, ToSamplesMath(c),
        [to = piece.to](size_t x, const Words<Wide>& a, const Words<Wide>& b) {
            putStrip(a, to, x);
            putStrip(b, to, x + half);
        });
}

// ---- From pixels ----

template <class Down> void fromPixels(const Piece& piece, const Constants& c) {
    const FromPixelsMath math(c);
    const auto convert = [&]<bool first>(size_t x) {
        const uint8_t* const pixels = piece.from.plane[0] + 4 * x;
        putStrip(math.take<Down, first>(pixels), piece.to, x);
        putStrip(math.take<Down, false>(pixels + 4 * half), piece.to, x + half);
    };
    if (piece.rowStart)
        convert.template operator()<true>(0);
    for (size_t x = piece.rowStart ? block : 0; x < piece.pixels; x += block)
        convert.template operator()<false>(x);
}

// ---- From samples ----

template <Layout layout> void fromSamples(const Piece& piece, const Constants&) {
    using Strip = Reader<Layout::v210>;
    const auto take = [&](size_t x) {
        return Words<Wide>{Strip::luma<Wide>(piece.from, x), Strip::chroma<Wide>(piece.from, x)};
    };
    forBlocks(piece, [&](size_t x) {
        Writer<layout>::put(WordsPair<Wide>{take(x), take(x + half)}, piece.to, x);
    });
}

// Calls step<V>(unit) for the units of V210 that hold the pixels, Wide::lanes at once and then
// singly: rows are whole units, and none behind them is touched.
template <class Step> ORVA_INLINE void forUnits(const Piece& piece, Step step) {
    const size_t units = (piece.pixels + 5) / 6;
    size_t unit = 0;
    for (; unit + Wide::lanes <= units; unit += Wide::lanes)
        step(Wide(), unit);
    for (; unit < units; ++unit)
        step(Vec128(), unit);
}

void unpackV210(const Piece& piece, const Constants&) {
    forUnits(piece, [&]<class V>(V, size_t unit) {
        const TenBitLanes<V> samples = unpackTenBits(V::load(piece.from.plane[0] + 16 * unit));
        storeTwelves(samples.luma, piece.to.plane[0] + 12 * unit);
        storeTwelves(samples.chroma, piece.to.plane[1] + 12 * unit);
    });
}

template <> void fromSamples<Layout::v210>(const Piece& piece, const Constants&) {
    forUnits(piece, [&]<class V>(V, size_t unit) {
        const auto take = [&](const uint8_t* plane) {
            return TenBits<4>::bounded(loadTwelves(plane + 12 * unit, V()));
        };
        packTenBits(TenBitLanes<V>{take(piece.from.plane[0]), take(piece.from.plane[1])})
            .store(piece.to.plane[0] + 16 * unit);
    });
}

// ---- What only moves ----

template <Layout from, Layout to> void move(const Piece& piece, const Constants&) {
    forBlocks(piece, [&](size_t x) {
        ByteWriter<to>::put(ByteReader<from>::template take<Wide>(piece.from, x), piece.to, x);
    });
}

void reorderPairs(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    forBlocks(piece, [&](size_t x) {
        for (const size_t i : {2 * x, 2 * x + Wide::bytes})
            order(Wide::load(piece.from.plane[0] + i)).store(piece.to.plane[0] + i);
    });
}

template <unsigned bytes> ORVA_INLINE Pixels16<Wide> takePixels(const Piece& piece, size_t x) {
    const uint8_t* const p = piece.from.plane[0] + bytes * x;
    return bytes == 3 ? takePixels24(p) : takePixels32(p);
}

template <unsigned from, unsigned to> void repack(const Piece& piece, const Constants& c) {
    const Reorder order(c.order);
    const Wide alpha = Wide::all32(uint32_t(c.alpha) << 24), colour = Wide::all32(0xFFFFFF);
    const auto moved = [&](Wide pixels) {
        return order(from < to ? (pixels & colour) | alpha : pixels);
    };
    forBlocks(piece, [&](size_t x) {
        const Pixels16<Wide> in = takePixels<from>(piece, x);
        const Pixels16<Wide> out{moved(in.a), moved(in.b), moved(in.c), moved(in.d)};
        if constexpr (to == 3)
            Pixels24::put(out, piece.to, x);
        else
            Pixels32::put(out, piece.to, x);
    });
}

// ---- Alpha ----

template <bool alphaFirst> void mergeAlpha(const Piece& piece, const Constants&) {
    const Wide colour = Wide::all32(alphaFirst ? 0xFFFFFF00 : 0x00FFFFFF);
    uint8_t* const pixels = piece.to.plane[0];
    size_t x = 0;
    for (; x + block <= piece.pixels; x += block) {
        const Pixels16<Wide> in = takePixels32(pixels + 4 * x);
        const Pixels16<Wide> alpha = alphaInPixels<alphaFirst>(piece.from.plane[0] + x);
        Pixels32::put(Pixels16<Wide>{(in.a & colour) | alpha.a, (in.b & colour) | alpha.b,
                                     (in.c & colour) | alpha.c, (in.d & colour) | alpha.d},
                      piece.to, x);
    }
    for (; x < piece.pixels; ++x)
        pixels[4 * x + (alphaFirst ? 0 : 3)] = piece.from.plane[0][x];
}

template <bool alphaFirst> void extractAlpha(const Piece& piece, const Constants&) {
    const uint8_t* const pixels = piece.from.plane[0];
    size_t x = 0;
    for (; x + block <= piece.pixels; x += block)
        alphaOf<alphaFirst>(takePixels32(pixels + 4 * x)).store(piece.to.plane[0] + x);
    for (; x < piece.pixels; ++x)
        piece.to.plane[0][x] = pixels[4 * x + (alphaFirst ? 0 : 3)];
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

template <size_t... all, size_t... bytes>
constexpr picture::Kernels makeKernels(Layouts<all...>, Layouts<bytes...>) {
    picture::Kernels k{};
    k.block = block;
    const auto ofLayout = [&k]<Layout layout>() {
        k.toPixels[layout][0] = toPixels<layout, CositedUp, Pixels32>;
        k.toPixels[layout][1] = toPixels<layout, NearestUp, Pixels32>;
        k.toPixels24[layout][0] = toPixels<layout, CositedUp, Pixels24>;
        k.toPixels24[layout][1] = toPixels<layout, NearestUp, Pixels24>;
        k.toSamples[layout][0] = toSamples<layout, CositedUp>;
        k.toSamples[layout][1] = toSamples<layout, NearestUp>;
        k.fromSamples[layout] = fromSamples<layout>;
    };
    (ofLayout.template operator()<Layout(all)>(), ...);
    k.unpackV210 = unpackV210;
    k.fromPixels[0] = fromPixels<CositedDown>;
    k.fromPixels[1] = fromPixels<NearestDown>;

    const auto moveBetween = [&k]<Layout from, Layout to>() {
        if constexpr (from != to && (from >= Layout::semiPlanar8 || to >= Layout::semiPlanar8))
            k.move[from][to] = move<from, to>;
    };
    const auto movesFrom = [&]<Layout from>() {
        (moveBetween.template operator()<from, Layout(bytes)>(), ...);
    };
    (movesFrom.template operator()<Layout(bytes)>(), ...);
    k.reorderPairs = reorderPairs;
    k.repack[0][0] = repack<3, 3>;
    k.repack[0][1] = repack<3, 4>;
    k.repack[1][0] = repack<4, 3>;
    k.repack[1][1] = repack<4, 4>;
    k.mergeAlpha[0] = mergeAlpha<false>;
    k.mergeAlpha[1] = mergeAlpha<true>;
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
