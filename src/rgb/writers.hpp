// Where BGR pixels go: blocks of 8 or 16 of them in vectors, pairs and single pixels at row ends.
#pragma once

#include "frame/planes.hpp"
#include "frame/row_walk.hpp"
#include "rgb/pixels.hpp"
#include "simd/bgr24.hpp"

namespace orva::ORVA_ISA {

class Bgr32Writer {
public:
    // What a colour conversion, which works on 8 pixels at a time, has to convert for one put.
    static constexpr uint32_t colourBlock = 8;
    static constexpr uint32_t streamedPixelBytes = 4;

    ORVA_INLINE explicit Bgr32Writer(const Descriptor& d) : dst(mainDestination(d)) {}

    template <uint32_t unitPixels> ORVA_INLINE uint32_t head() const {
        return unitsToBoundary<4 * unitPixels>(dst);
    }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class Stores, class V> ORVA_INLINE void put(Stores stores, const Pixels8<V>& pixels) {
        stores.put(pixels.a, dst);
        stores.put(pixels.b, dst + V::bytes);
        dst += 2 * V::bytes;
    }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const Pixels16<V>& pixels) {
        put(stores, Pixels8<V>{pixels.a, pixels.b});
        put(stores, Pixels8<V>{pixels.c, pixels.d});
    }

    // Up to 4 pairs of pixels.
    template <uint32_t count> ORVA_INLINE void putPairs(const Pixels8<Vec128>& pixels) {
        if constexpr (count == 4) {
            put(OrdinaryStores(), pixels);
        } else {
            pixels.a.storeFirst<8 * count>(dst);
            dst += 8 * count;
        }
    }

    ORVA_INLINE void putPixel(uint32_t pixel) {
        Vec128::fromDwords(pixel, 0).store4(dst);
        dst += 4;
    }

    ORVA_INLINE void endRow() { dst.endRow(); }

private:
    DestinationPointer dst;
};

// Drops the fourth bytes.
class Bgr24Writer {
public:
    static constexpr uint32_t colourBlock = 16;
    static constexpr uint32_t streamedPixelBytes = 3;

    ORVA_INLINE explicit Bgr24Writer(const Descriptor& d) : dst(mainDestination(d)) {}

    template <uint32_t unitPixels> ORVA_INLINE uint32_t head() const {
        return unitsToBoundary<3 * unitPixels>(dst);
    }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class Stores, class V>
    ORVA_INLINE void put(Stores stores, const Pixels16<V>& pixels) {
        const Twelves<V> packed = pack24(pixels.a, pixels.b, pixels.c, pixels.d);
        stores.put(packed.first, dst);
        stores.put(packed.second, dst + V::bytes);
        stores.put(packed.third, dst + 2 * V::bytes);
        dst += 3 * V::bytes;
    }

    template <uint32_t count> ORVA_INLINE void putPairs(const Pixels8<Vec128>& pixels) {
        const Twelves<Vec128> packed = pack24(pixels.a, pixels.b, pixels.b, pixels.b);
        packed.first.storeFirst<count == 4 ? 16 : 6 * count>(dst);
        if constexpr (count == 4)
            packed.second.storeFirst<8>(dst + 16);
        dst += 6 * count;
    }

    ORVA_INLINE void putPixel(uint32_t pixel) {
        dst[0] = uint8_t(pixel);
        dst[1] = uint8_t(pixel >> 8);
        dst[2] = uint8_t(pixel >> 16);
        dst += 3;
    }

    ORVA_INLINE void endRow() { dst.endRow(); }

private:
    DestinationPointer dst;
};

}  // namespace orva::ORVA_ISA
