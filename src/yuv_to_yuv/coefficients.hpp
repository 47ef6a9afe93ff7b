// The numbers that move YCbCr samples from one matrix to the other, chosen once per call: weights
// of the centred Cb and Cr with 14 fraction bits.
#pragma once

#include "frame/kernel.hpp"

namespace orva::ORVA_ISA {

struct ChromaWeights {
    int16_t cb, cr;
};

struct MatrixSetup {
    ChromaWeights lumaCorrection, cb, cr;
};

// Only the codes 1 and 0, in this order, mean BT.601 to BT.709. Every other pair of codes, whatever
// it may be thought to say, means BT.709 to BT.601.
inline MatrixSetup matrixSetup(const Descriptor& d) {
    if (d.srcColorSpace == 1 && d.dstColorSpace == 0)
        return {{-1893, -3407}, {16689, 1878}, {1230, 16799}};
    return {{1627, 3141}, {16218, -1813}, {-1187, 16112}};
}

}  // namespace orva::ORVA_ISA
