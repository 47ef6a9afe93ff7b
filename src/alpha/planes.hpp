// Alpha planes beside BGR images: taken as fourth bytes, and made of them.
#pragma once

#include "frame/row_walk.hpp"
#include "rgb/writers.hpp"

namespace orva::ORVA_ISA {

// The source's alpha plane, as fourth bytes of otherwise empty pixels.
class FourthFromPlane {
public:
    ORVA_INLINE explicit FourthFromPlane(const Descriptor& d) : src(alphaSource(d)) {}

    template <class V> ORVA_INLINE Pixels16<V> take16() {
        const V bytes = V::load(src);
        src += V::bytes;
        return asFourthBytes(bytes);
    }
    ORVA_INLINE uint32_t takePixel() {
        const uint32_t alpha = *src;
        src += 1;
        return alpha << 24;
    }
    ORVA_INLINE void endRow() { src.endRow(); }

private:
    SourcePointer src;
};

// The fourth bytes of 8 * lanes pixels, in memory order in the low half.
template <class V> ORVA_INLINE V fourthBytes(const Pixels8<V>& pixels) {
    const V words = packWords(shiftRight32<24>(pixels.a), shiftRight32<24>(pixels.b));
    return groupQuarters(packBytes(words, words));
}

// Fourth bytes to the destination's main plane, which is the whole destination.
class AlphaWriter {
public:
    static constexpr uint32_t streamedPixelBytes = 1;

    ORVA_INLINE explicit AlphaWriter(const Descriptor& d) : dst(mainDestination(d)) {}

    template <uint32_t unitPixels> ORVA_INLINE uint32_t head() const {
        return unitsToBoundary<unitPixels>(dst);
    }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const Pixels16<V>& pixels) {
        stores.put(fourthBytes(pixels), dst);
        dst += V::bytes;
    }
    ORVA_INLINE void putPixel(uint32_t pixel) {
        *dst = uint8_t(pixel >> 24);
        dst += 1;
    }
    ORVA_INLINE void endRow() { dst.endRow(); }

private:
    DestinationPointer dst;
};

// Colour to a BGR24I main plane, fourth bytes to the alpha plane beside it.
class Bgr24AndAlphaWriter {
public:
    static constexpr uint32_t streamedPixelBytes = Bgr24Writer::streamedPixelBytes;

    ORVA_INLINE explicit Bgr24AndAlphaWriter(const Descriptor& d)
        : colour(d), alpha(alphaDestination(d)) {}

    template <uint32_t unitPixels> ORVA_INLINE uint32_t head() const {
        return colour.head<unitPixels>();
    }
    ORVA_INLINE uint8_t* streamed() const { return colour.streamed(); }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const Pixels16<V>& pixels) {
        colour.put(stores, pixels);
        // Nothing brings the alpha plane of a general kernel to a boundary, and no export tests it.
        fourthBytes(pixels).store(alpha);
        alpha += V::bytes;
    }
    ORVA_INLINE void putPixel(uint32_t pixel) {
        colour.putPixel(pixel);
        *alpha = uint8_t(pixel >> 24);
        alpha += 1;
    }
    ORVA_INLINE void endRow() {
        colour.endRow();
        alpha.endRow();
    }

private:
    Bgr24Writer colour;
    DestinationPointer alpha;
};

}  // namespace orva::ORVA_ISA
