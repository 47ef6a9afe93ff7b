// Line addressing of the reducing and enlarging conversions of the scalar model.
#pragma once

#include "reference/bytes.hpp"

namespace reference {

// Each line pointer is a line's start; rows are read through copies of it.
struct LineAddresses {
    Source lineA, lineB;
    Destination dstLine;
    std::int64_t pairAdvance, dstAdvance;
    std::uint32_t rowCount;
};

inline LineAddresses lineAddresses(const Descriptor& d) {
    LineAddresses lines{Source(d.srcData), Source(d.srcData), Destination(d.dstData),
                        d.srcRowGap,       d.dstRowGap,       d.srcHeight};
    const bool linePairs = d.lineMode == 1 || d.lineMode == 2;
    if (linePairs && (d.kernelMode == 1 || d.kernelMode == 2)) {
        const std::int64_t step = d.kernelMode == 1 ? 2 : 4;
        const std::int64_t line = d.srcRowGap < 0 ? -std::int64_t{d.srcPitch} : d.srcPitch;
        lines.lineB += d.srcLinePairAdjacent ? line : step * line;
        lines.pairAdvance += 2 * step * line;
        lines.rowCount = d.dstHeight;
    }
    return lines;
}

}  // namespace reference
