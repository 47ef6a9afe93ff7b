// Where the pixels of YCbCr to RGB conversions go.
#pragma once

#include "frame/row_walk.hpp"
#include "yuv_to_rgb/math.hpp"

namespace orva::ORVA_ISA {

class Bgr32Writer {
public:
    static constexpr uint32_t blockPixels = 8;

    ORVA_INLINE explicit Bgr32Writer(const Descriptor& d)
        : dst(static_cast<uint8_t*>(d.dstData)), gap(d.dstRowGap) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<8>(dst); }
    ORVA_INLINE bool streamable() const { return isAligned16(dst); }

    template <class V, class Stores> ORVA_INLINE void put(const BgrPixels<V>& pixels) {
        Stores::put(pixels.first, dst);
        Stores::put(pixels.second, dst + V::bytes);
        dst += 2 * V::bytes;
    }

    ORVA_INLINE void putPair(Vec128 pixels) {
        pixels.store8(dst);
        dst += 8;
    }

    ORVA_INLINE void endRow() { dst += gap; }

private:
    uint8_t* dst;
    ptrdiff_t gap;
};

}  // namespace orva::ORVA_ISA
