// YCbCr to YCbCr of the scalar model: reordering, and conversion between the two matrices.
#pragma once

#include "reference/layouts.hpp"

#include <array>

namespace reference {

// Weights of centred Cb and Cr with 14 fraction bits.
struct ChromaWeights {
    int cb, cr;
};
struct YuvMatrix {
    ChromaWeights luma, cb, cr;
    LumaBounds bounds;
};
YuvMatrix yuvMatrix(const Descriptor& d);

using YuvBlock = std::array<YuvPair, 8>;
YuvBlock convertBlock(const YuvMatrix& matrix, const YuvBlock& block);
YuvPair convertGroup(const YuvMatrix& matrix, const YuvPair& pair);

void reorderYuv(const Descriptor& d, const YuvLayout& from, const YuvLayout& to);
void convertMatrix(const Descriptor& d, const YuvLayout& from, const YuvLayout& to);

}  // namespace reference
