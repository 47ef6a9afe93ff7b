// The two walks over the rows of an image that serve every kernel.
//
// A job is one conversion under way: it holds the running pointers of its planes and offers
//
//     unitPixels                 pixels of a unit, the least it can convert: 1, or 2 for 4:2:2
//     blockPixels                pixels of a block, the least it can convert with whole vectors
//     head()                     units from the destination pointer to the first 16-byte boundary
//     streamable()               whether a block at the destination pointer can be streamed
//     blocks<V, Stores>()        converts V::lanes blocks and moves on
//     unit<Stores>()             converts one unit and moves on
//     endRow()                   adds the row gaps
//
// The fast walk knows whole blocks only: what is left of a row is not touched, and the pointers do
// not pass over it. The general walk splits every row anew into head units, blocks and tail units;
// a row too narrow to be worth it is all head.
#pragma once

#include "frame/kernel.hpp"
#include "frame/memory_access.hpp"

namespace orva::ORVA_ISA {

template <class Stores, class Job> ORVA_INLINE void convertBlocks(Job& job, uint32_t count) {
    for (; count >= Wide::lanes; count -= Wide::lanes)
        job.template blocks<Wide, Stores>();
    if constexpr (Wide::lanes > 1)
        for (; count > 0; --count)
            job.template blocks<Vec128, Stores>();
}

template <class Stores, class Job>
ORVA_INLINE void walkWholeBlocks(Job job, uint32_t rows, uint32_t width) {
    for (; rows > 0; --rows) {
        convertBlocks<Stores>(job, width / Job::blockPixels);
        job.endRow();
    }
}

template <class Stores, class Job>
ORVA_INLINE void walkAnyWidth(Job job, uint32_t rows, uint32_t width, uint32_t narrow = 16) {
    for (; rows > 0; --rows) {
        const uint32_t head = width < narrow ? width / Job::unitPixels : job.head();
        const uint32_t behindHead = width - head * Job::unitPixels;
        for (uint32_t i = 0; i < head; ++i)
            job.template unit<Stores>();
        // A row that its units cannot bring to a 16-byte boundary is stored with ordinary stores.
        if (!Stores::streaming || job.streamable())
            convertBlocks<Stores>(job, behindHead / Job::blockPixels);
        else
            convertBlocks<OrdinaryStores>(job, behindHead / Job::blockPixels);
        for (uint32_t i = behindHead % Job::blockPixels / Job::unitPixels; i > 0; --i)
            job.template unit<Stores>();
        job.endRow();
    }
}

template <bool fast, class Stores, class Job>
ORVA_INLINE void walkRows(const Job& job, uint32_t rows, uint32_t width) {
    if constexpr (fast)
        walkWholeBlocks<Stores>(job, rows, width);
    else
        walkAnyWidth<Stores>(job, rows, width);
}

// Units of unitBytes from p to the first 16-byte boundary. Units of 3 and 6 bytes reach it after
// the fewest that end on one, the others round down.
template <unsigned unitBytes> ORVA_INLINE uint32_t unitsToBoundary(const uint8_t* p) {
    const uint32_t past = uint32_t(reinterpret_cast<uintptr_t>(p) % 16);
    if constexpr (unitBytes == 3)
        return past * 5 % 16;
    else if constexpr (unitBytes == 6)
        return past / 2 * 5 % 8;
    else
        return past == 0 ? 0 : (16 - past) / unitBytes;
}

// The kernels of a conversion, which offers run<fast, Stores>(descriptor).
template <class Conversion>
inline constexpr KernelSet kernelSet{
    Conversion::template run<true, OrdinaryStores>,
    Conversion::template run<true, StreamingStores>,
    Conversion::template run<false, OrdinaryStores>,
    Conversion::template run<false, StreamingStores>,
};

}  // namespace orva::ORVA_ISA
