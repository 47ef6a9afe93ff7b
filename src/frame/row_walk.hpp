// The two walks over the rows of an image that serve every kernel.
//
// They walk for a job: one conversion under way, which holds the running pointers of its planes.
// The fast walk knows whole blocks only: what is left of a row is not touched, and the pointers do
// not pass over it. The general walk splits every row anew into head units, blocks and tail units;
// a row too narrow to be worth it is all head.
#pragma once

#include <concepts>

#include "frame/kernel.hpp"
#include "frame/memory_access.hpp"

namespace orva::ORVA_ISA {

// A job converts blocks of pixels, the least that whole vectors take.
template <class J>
concept BlockJob = requires(J job) {
    { J::blockPixels } -> std::convertible_to<uint32_t>;
    // Bytes of a pixel that can be streamed, 0 if none can.
    { J::streamedPixelBytes } -> std::convertible_to<uint32_t>;
    // Converts Wide::lanes blocks and moves on.
    job.template blocks<Wide>(OrdinaryStores());
    // Adds the row gaps.
    job.endRow();
};

template <class J>
concept StreamableJob = BlockJob<J> && requires(J job) {
    // Where the next block's streamed bytes go, null if they cannot be streamed there.
    { job.streamed() } -> std::same_as<uint8_t*>;
};

// For rows of any width it also converts units, the least there is: a pixel, or 2 of 4:2:2.
template <class J>
concept Job = BlockJob<J> && requires(J job) {
    { J::unitPixels } -> std::convertible_to<uint32_t>;
    // Units from the destination pointer to the first 16-byte boundary.
    { job.head() } -> std::same_as<uint32_t>;
    // Converts 4 units, or 2 or 1, and moves on.
    job.template units<4>();
};

template <BlockJob J, class Stores>
ORVA_INLINE void convertWith(Stores stores, J& job, size_t blocks) {
    for (; blocks >= Wide::lanes; blocks -= Wide::lanes)
        job.template blocks<Wide>(stores);
    if constexpr (Wide::lanes > 1)
        for (; blocks > 0; --blocks)
            job.template blocks<Vec128>(stores);
}

// Streams whole cache lines only. A line that is partly written past the cache costs a transfer to
// memory of its own, and one that is also written through the cache costs several.
//
//     cache lines       |       |       |       |       |       |       |
//     blocks of a row         [____][____][____][____][____][____]
//     toLine                  <>                                           bytes
//     lines                     <------------------------------>           bytes
//     lead                    <---->                                       blocks
//     whole                   <---------------------------->               blocks
//
// The blocks between lead and whole are streamed, those before and behind as far as they lie in
// the lines.
template <StreamableJob J> ORVA_INLINE void convertStreaming(J& job, size_t blocks) {
    constexpr size_t blockBytes = J::blockPixels * J::streamedPixelBytes;
    static_assert(blockBytes <= cacheLine);  // so that lead <= whole
    const uint8_t* const begin = job.streamed();
    const size_t toLine = -reinterpret_cast<uintptr_t>(begin) % cacheLine;
    if (begin == nullptr || blocks * blockBytes < toLine + cacheLine) {
        convertWith(OrdinaryStores(), job, blocks);
        return;
    }
    const size_t lines = (blocks * blockBytes - toLine) / cacheLine * cacheLine;
    const StreamingBetween stores{begin + toLine, begin + toLine + lines};
    const size_t lead = (toLine + blockBytes - 1) / blockBytes;
    const size_t whole = (toLine + lines) / blockBytes;
    for (size_t i = 0; i < lead; ++i)
        job.template blocks<Vec128>(stores);
    convertWith(StreamingStores(), job, whole - lead);
    for (size_t i = whole; i < blocks; ++i)
        job.template blocks<Vec128>(stores);
}

template <class Stores, BlockJob J> ORVA_INLINE void convertBlocks(J& job, size_t blocks) {
    if constexpr (Stores::streaming && J::streamedPixelBytes > 0)
        convertStreaming(job, blocks);
    else
        convertWith(OrdinaryStores(), job, blocks);
}

// Rows without gaps are one long row to a walk over whole blocks. Gaps of planes that a conversion
// does not have count as well, which costs no more than the time that is saved here.
ORVA_INLINE bool hasRowGaps(const Descriptor& d) {
    return (d.srcRowGap | d.dstRowGap | d.srcPlane2RowGap | d.dstPlane2RowGap) != 0;
}

template <class Stores, BlockJob J> ORVA_INLINE void walkWholeBlocks(J job, const Descriptor& d) {
    size_t rows = d.srcHeight, blocks = d.dstWidth / J::blockPixels;
    if (!hasRowGaps(d)) {
        blocks *= rows;
        rows = 1;
    }
    for (; rows > 0; --rows) {
        convertBlocks<Stores>(job, blocks);
        job.endRow();
    }
}

template <Job J> ORVA_INLINE void convertUnits(J& job, uint32_t count) {
    for (; count >= 4; count -= 4)
        job.template units<4>();
    if (count & 2)
        job.template units<2>();
    if (count & 1)
        job.template units<1>();
}

template <class Stores, Job J>
ORVA_INLINE void walkAnyWidth(J job, uint32_t rows, uint32_t width, uint32_t narrow = 16) {
    for (; rows > 0; --rows) {
        const uint32_t head = width < narrow ? width / J::unitPixels : job.head();
        const uint32_t behindHead = width - head * J::unitPixels;
        convertUnits(job, head);
        convertBlocks<Stores>(job, behindHead / J::blockPixels);
        convertUnits(job, behindHead % J::blockPixels / J::unitPixels);
        job.endRow();
    }
}

template <bool fast, class Stores, Job J>
ORVA_INLINE void walkRows(const J& job, const Descriptor& d) {
    if constexpr (fast)
        walkWholeBlocks<Stores>(job, d);
    else
        walkAnyWidth<Stores>(job, d.srcHeight, d.dstWidth);
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

// Chooses between the two kinds of a conversion that offers run<clamped, fast, Stores>(descriptor),
// so that it costs nothing not to clamp luma.
template <class Conversion> struct Clamping {
    template <bool fast, class Stores> static void run(const Descriptor& d) {
        if (d.clampStudio)
            Conversion::template run<true, fast, Stores>(d);
        else
            Conversion::template run<false, fast, Stores>(d);
    }
};

// The kernels of a conversion, which offers run<fast, Stores>(descriptor).
template <class Conversion, bool fastIfAligned = true>
inline constexpr KernelSet kernelSet{
    .aligned = Conversion::template run<fastIfAligned, OrdinaryStores>,
    .alignedStreaming = Conversion::template run<fastIfAligned, StreamingStores>,
    .general = Conversion::template run<false, OrdinaryStores>,
    .generalStreaming = Conversion::template run<false, StreamingStores>,
};

// The general ones alone, whatever the test of alignment says.
template <class Conversion>
inline constexpr KernelSet generalKernelSet = kernelSet<Conversion, false>;

}  // namespace orva::ORVA_ISA
