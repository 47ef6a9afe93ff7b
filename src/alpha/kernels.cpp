// Copying and filling 8-bit alpha planes, where a pixel is a byte and blocks are 32 bytes; and
// moving them out of and into the fourth bytes of BGR32I.
#include "alpha/kernels.hpp"

#include "alpha/planes.hpp"
#include "frame/move.hpp"
#include "rgb/repack.hpp"

namespace orva::ORVA_ISA {
namespace {

// The general kernel loads its source aligned only if it stores with ordinary stores. Hosts rely on
// the streaming one taking any source.
void copy(const Descriptor& d, Form form) {
    if (form.streaming && !form.fast)
        move<AlphaBytes, Unchanged, UnalignedLoads>(d, form);
    else
        move<AlphaBytes, Unchanged, AlignedLoads>(d, form);
}

struct FillJob {
    static constexpr bool inlinesEnds = true;
    static constexpr uint32_t unitPixels = 1;
    static constexpr uint32_t blockPixels = 32;
    static constexpr uint32_t streamedPixelBytes = 1;

    DestinationPointer dst;
    Constant alpha;

    ORVA_INLINE explicit FillJob(const Descriptor& d)
        : dst(mainDestination(d)), alpha(Wide::all8(uint8_t(d.alphaValue))) {}

    ORVA_INLINE uint32_t head() const { return unitsToBoundary<1>(dst); }
    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        stores.put(constant<V>(alpha), dst);
        stores.put(constant<V>(alpha), dst + V::bytes);
        dst += 2 * V::bytes;
    }

    template <uint32_t count> ORVA_INLINE void units() {
        if constexpr (count == 4)
            constant<Vec128>(alpha).storeFirst<4>(dst);
        else
            for (uint32_t i = 0; i < count; ++i)
                dst[i] = uint8_t(constant<Vec128>(alpha).low32());
        dst += count;
    }

    ORVA_INLINE void endRow() { dst.endRow(); }
};

void fill(const Descriptor& d, Form form) { walkImage(FillJob(d), d, form); }

}  // namespace

extern const AlphaKernels alphaKernels;
constinit const AlphaKernels alphaKernels{
    .copy = copy,
    .fill = fill,
    .bgr32ToAlpha = repack<Bgr32Reader, AlphaWriter>,
    .bgr32ToBgr24A8p = repack<Bgr32Reader, Bgr24AndAlphaWriter>,
    .bgr24A8pToBgr32 = repack<Bgr24WithFourth<FourthFromPlane>, Bgr32Writer>,
};

}  // namespace orva::ORVA_ISA
