// The memory that one frame of a conversion takes.
#pragma once

#include <algorithm>
#include <cstddef>

namespace bench {

inline size_t toPage(size_t bytes) { return (bytes + 4095) / 4096 * 4096; }

// The planes of a conversion, placed one after the other in memory that begins on a page boundary.
struct FrameMemory {
    size_t moved = 0;  // bytes of the rows that are read and written
    size_t end = 0;

    // Where a plane begins: so many bytes behind a page boundary.
    size_t place(size_t bytes, size_t behindPage = 0) {
        const size_t begin = end + behindPage;
        end = toPage(begin + bytes);
        return begin;
    }
    // Room for the planes, or to copy half of those bytes from one page boundary to another.
    size_t bytes() const { return std::max(end, 2 * toPage(moved / 2)); }
};

}  // namespace bench
