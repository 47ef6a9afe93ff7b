// The numbers of the RGB to YCbCr transform, chosen once per call: weights with 15 fraction bits.
#pragma once

#include "frame/kernel.hpp"

namespace orva::ORVA_ISA {

struct RgbWeights {
    int16_t red, green, blue;
};

struct RgbToYuvConstants {
    RgbWeights luma, cb, cr;
    uint8_t lumaOffset;
};

// Full range changes luma only: chroma always spans 16..240.
inline RgbToYuvConstants rgbToYuvConstants(const Descriptor& d) {
    const bool bt601 = d.dstColorSpace == 1;
    const bool full = d.fullRange != 0;
    return {
        .luma = bt601  ? full ? RgbWeights{9798, 19235, 3735} : RgbWeights{8414, 16519, 3208}
                 : full ? RgbWeights{6966, 23436, 2366}
                       : RgbWeights{5983, 20127, 2032},
        .cb = bt601 ? RgbWeights{-4857, -9535, 14392} : RgbWeights{-3298, -11094, 14392},
        .cr = bt601 ? RgbWeights{14392, -12051, -2340} : RgbWeights{14392, -13073, -1320},
        .lumaOffset = uint8_t(full ? 0 : 16),
    };
}

}  // namespace orva::ORVA_ISA
