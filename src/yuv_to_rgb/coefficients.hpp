// The numbers of the YCbCr to RGB transform, chosen once per call.
//
//     B = (KY * y + 8192 + 2 * u * KUB) >> 14
//     G = (KY * y + 8192 + 2 * u * KUG + 2 * v * KVG) >> 14
//     R = (KY * y + 8192 + 2 * v * KVR) >> 14
//
// with y = luma - offset, u = Cb - 128, v = Cr - 128. Gains are fixed point with 14 fraction bits;
// those of chroma are halved so that 2.11 fits in a signed word, and meet a doubled difference.
#pragma once

#include "frame/kernel.hpp"

namespace orva::ORVA_ISA {

struct YuvToRgbCoefSetup {
    int16_t lumaGain;
    int16_t lumaOffset;
    int16_t blueFromCb, greenFromCb, greenFromCr, redFromCr;
};

// Full range changes luma only: chroma is always expanded as if it spanned 16..240.
inline YuvToRgbCoefSetup yuvToRgbCoefSetup(const Descriptor& d) {
    static constexpr int16_t studioGain = 19073, fullGain = 16384;
    YuvToRgbCoefSetup setup = d.dstColorSpace == 1
                                  ? YuvToRgbCoefSetup{0, 0, 16525, -3209, -6660, 13075}   // BT.601
                                  : YuvToRgbCoefSetup{0, 0, 17305, -1747, -4366, 14686};  // BT.709
    setup.lumaGain = d.fullRange ? fullGain : studioGain;
    setup.lumaOffset = d.fullRange ? 0 : 16;
    return setup;
}

}  // namespace orva::ORVA_ISA
