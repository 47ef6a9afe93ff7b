// Where BGR pixels come from. A reader takes blocks of 8 or 16 pixels as vectors of 4-byte pixels
// in memory order, and single pixels as B, G, R and the fourth byte from the low byte up.
#pragma once

#include "frame/line_pairs.hpp"
#include "frame/planes.hpp"
#include "rgb/pixels.hpp"
#include "simd/bgr24.hpp"

namespace orva::ORVA_ISA {

class Bgr32Reader {
public:
    ORVA_INLINE explicit Bgr32Reader(const Descriptor& d) : src(mainSource(d)) {}

    ORVA_INLINE const uint8_t* position() const { return src; }

    template <class V> ORVA_INLINE Pixels8<V> take8() {
        const Pixels8<V> pixels{vector<V>(0), vector<V>(1)};
        src += 2 * V::bytes;
        return pixels;
    }

    template <class V> ORVA_INLINE Pixels16<V> take16() {
        const Pixels16<V> pixels{vector<V>(0), vector<V>(1), vector<V>(2), vector<V>(3)};
        src += 4 * V::bytes;
        return pixels;
    }

    // Up to 4 pairs of pixels.
    template <uint32_t count> ORVA_INLINE Pixels8<Vec128> takePairs() {
        if constexpr (count == 4) {
            return take8<Vec128>();
        } else {
            const Vec128 pixels = Vec128::loadFirst<8 * count>(src);
            src += 8 * count;
            return {pixels, Vec128::zero()};
        }
    }

    ORVA_INLINE uint32_t takePixel() {
        const uint32_t pixel = Vec128::load4(src).low32();
        src += 4;
        return pixel;
    }

    ORVA_INLINE void endRow() { src.endRow(); }

private:
    template <class V> ORVA_INLINE V vector(uint32_t i) const {
        return V::load(src + i * V::bytes);
    }

    SourcePointer src;
};

// BGR32I reduced by a factor: every factor-th pixel, which is a dword.
template <uint32_t factor> class ReducingBgr32Reader {
public:
    ORVA_INLINE explicit ReducingBgr32Reader(const Descriptor& d)
        : lines(lineAddresses(d)), src(lines.line()) {}

    template <class V> ORVA_INLINE Pixels8<V> take8() {
        lines.template fetchFromNextLine<2 * factor * V::bytes>(src);
        const Pixels8<V> pixels{everyDword<V, factor>(src),
                                everyDword<V, factor>(src + factor * V::bytes)};
        src += 2 * factor * V::bytes;
        return pixels;
    }

    template <uint32_t count> ORVA_INLINE Pixels8<Vec128> takePairs() {
        const FewDwords pixels = fewDwords<factor, 2 * count>(src);
        src += 8 * factor * count;
        return {pixels.first, pixels.second};
    }

    ORVA_INLINE void endRow() {
        lines.endRow();
        src = lines.line();
    }

private:
    LinePairs<Moves::otherLine> lines;
    const uint8_t* src;
};

// The fourth bytes are unspecified.
class Bgr24Reader {
public:
    ORVA_INLINE explicit Bgr24Reader(const Descriptor& d) : src(mainSource(d)) {}

    ORVA_INLINE const uint8_t* position() const { return src; }

    template <class V> ORVA_INLINE Pixels8<V> take8() {
        const Pixels8<V> pixels{front<V>(0), back<V>(1)};
        src += 24 * V::lanes;
        return pixels;
    }

    template <class V> ORVA_INLINE Pixels16<V> take16() {
        const Pixels16<V> pixels{front<V>(0), front<V>(1), front<V>(2), back<V>(3)};
        src += 48 * V::lanes;
        return pixels;
    }

    template <uint32_t count> ORVA_INLINE Pixels8<Vec128> takePairs() {
        if constexpr (count == 4) {
            return take8<Vec128>();
        } else if constexpr (count == 2) {
            const Vec128 pixels = widen24(Vec128::loadFirst<12>(src));
            src += 12;
            return {pixels, Vec128::zero()};
        } else {
            const uint32_t first = takePixel();
            return {Vec128::fromDwords(first, takePixel()), Vec128::zero()};
        }
    }

    ORVA_INLINE uint32_t takePixel() {
        const uint32_t pixel = src[0] | uint32_t(src[1]) << 8 | uint32_t(src[2]) << 16;
        src += 3;
        return pixel;
    }

    ORVA_INLINE void endRow() { src.endRow(); }

private:
    template <class V> ORVA_INLINE V front(uint32_t i) const {
        return loadFront24(src + 12 * V::lanes * i, V());
    }
    template <class V> ORVA_INLINE V back(uint32_t i) const {
        return loadBack24(src + 12 * V::lanes * i, V());
    }

    SourcePointer src;
};

// A reader that asks early for what comes. A destination of two planes keeps the processor's own
// look-ahead too busy to serve the source; everything else is slower with this.
template <class Reader> class FetchingAhead : public Reader {
public:
    using Reader::Reader;

    template <class V> ORVA_INLINE Pixels8<V> take8() {
        const uint8_t* const begin = this->position();
        const Pixels8<V> pixels = Reader::template take8<V>();
        constexpr ptrdiff_t ahead = 1024;  // bytes
        for (const uint8_t* line = begin; line < this->position(); line += cacheLine)
            __builtin_prefetch(line + ahead);
        return pixels;
    }
};

// BGR24I pixels with fourth bytes from somewhere else.
template <class Fourth> class Bgr24WithFourth {
public:
    ORVA_INLINE explicit Bgr24WithFourth(const Descriptor& d) : colour(d), fourth(d) {}

    template <class V> ORVA_INLINE Pixels16<V> take16() {
        const Pixels16<V> pixels = colour.template take16<V>();
        const Pixels16<V> fourths = fourth.template take16<V>();
        return {join(pixels.a, fourths.a), join(pixels.b, fourths.b), join(pixels.c, fourths.c),
                join(pixels.d, fourths.d)};
    }

    ORVA_INLINE uint32_t takePixel() { return colour.takePixel() | fourth.takePixel(); }

    ORVA_INLINE void endRow() {
        colour.endRow();
        fourth.endRow();
    }

private:
    template <class V> ORVA_INLINE static V join(V colour, V fourth) {
        return (colour & V::all32(0x00FFFFFF)) | fourth;
    }

    Bgr24Reader colour;
    Fourth fourth;
};

// The low byte of the constant, as the fourth byte of otherwise empty pixels.
class FourthFromConstant {
public:
    ORVA_INLINE explicit FourthFromConstant(const Descriptor& d)
        : pixels(Wide::all32(uint32_t(d.alphaValue) << 24)) {}

    template <class V> ORVA_INLINE Pixels16<V> take16() const {
        const V vector = constant<V>(pixels);
        return {vector, vector, vector, vector};
    }
    ORVA_INLINE uint32_t takePixel() const { return constant<Vec128>(pixels).low32(); }
    ORVA_INLINE void endRow() {}

private:
    Constant pixels;
};

}  // namespace orva::ORVA_ISA
