// What is measured: every conversion in every form that has kernels of its own.
#pragma once

#include "frame_memory.hpp"
#include "golden/exports.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace bench {

namespace golden = orva::golden;

using Descriptor = OrvaConversionDescriptor;

struct Size {
    uint32_t width, height;
    bool operator==(const Size&) const = default;
};

inline constexpr Size inCache{320, 64}, pal{720, 576}, hd{1920, 1080}, hdAndPair{1922, 1080},
    uhd{3840, 2160};

std::string label(Size size);

// Conversions that cost alike.
enum class Family {
    yuvToBgr32,
    yuvToBgr24,
    bgr32ToYuv,
    bgr24ToYuv,
    matrix,    // between YCbCr formats of different colour codes
    move,      // copies, reorderings, splits and what takes 32-bit pixels apart
    repack24,  // between 24-bit and 32-bit pixels
    mode,      // kernel modes 1 to 3
};

const char* label(Family family);

struct Case {
    const golden::Export* conversion;
    int32_t mode = 0;
    int32_t srcColorSpace = 0, dstColorSpace = 0;

    std::string name() const;
    Family family() const;
    // Between formats of YCbCr and BGR or of two matrices.
    bool computesColours() const;
};

const golden::Export& exportNamed(std::string_view name);

// All of them, or those whose names contain the filter.
std::vector<Case> cases(std::string_view filter);

// Where a case's planes of one size lie in memory that begins on a page boundary. Rows follow each
// other without gaps. The size is that of the larger picture where a mode changes it.
class Layout {
public:
    struct Options {
        // Every destination plane begins 8 bytes behind a page boundary, and so do sources whose
        // rows must then have the same address modulo 16.
        bool offset = false;
        bool streaming = false;
    };
    Layout(const Case& c, Size size, const Options& options);

    Descriptor at(uint8_t* memory) const;
    // Reducing modes skip lines but no bytes of one.
    const FrameMemory& frame() const { return placed; }

private:
    Descriptor descriptor{};
    FrameMemory placed;
    size_t src, srcAlpha, dst, dstAlpha;
};

}  // namespace bench
