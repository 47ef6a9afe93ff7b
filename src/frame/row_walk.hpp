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
    // Converts 4 units, or 2 or 1, and moves on; 4 only if a block has more.
    job.template units<2>();
};

// What a row has before and behind its wide vectors.
struct Units {
    uint32_t count;

    template <Job J> ORVA_INLINE void convert(J& job) const {
        // Fewer than a block has, but in narrow rows.
        constexpr uint32_t most = J::blockPixels / J::unitPixels > 4 ? 4 : 2;
        uint32_t left = count;
        for (; left >= most; left -= most)
            job.template units<most>();
        if (most > 2 && (left & 2))
            job.template units<2>();
        if (left & 1)
            job.template units<1>();
    }
};

struct OneByOne {
    size_t blocks;
    const StreamingBetween& stores;

    template <BlockJob J> ORVA_INLINE void convert(J& job) const {
        for (size_t left = blocks; left > 0; --left)
            job.template blocks<Vec128>(stores);
    }
};

// Works on a copy of the job, which stays in registers: bytes that are stored might be the job's
// own. In 32-bit builds, which have few registers, a copy would be a tenth more code.
template <BlockJob J, class Part> [[gnu::noinline]] void convertApart(J& job, Part part) {
    if constexpr (sizeof(void*) == 4) {
        part.convert(job);
    } else {
        J running = job;
        part.convert(running);
        job = running;
    }
}

// Parts are converted apart, not inlined: they are most of a kernel's code and little of its work.
// A job whose parts are little code as well says so.
template <class J> constexpr bool inlinesEnds = requires { requires J::inlinesEnds; };

template <BlockJob J, class Part> ORVA_INLINE void convertPart(J& job, J& running, Part part) {
    if constexpr (inlinesEnds<J>) {
        part.convert(running);
    } else {
        job = running;
        convertApart(job, part);
        running = job;
    }
}

// Leaves what is too little for the widest vectors, and returns how many blocks that is.
template <BlockJob J, class Stores>
ORVA_INLINE size_t convertWide(J& job, Stores stores, size_t blocks) {
    for (; blocks >= Wide::lanes; blocks -= Wide::lanes)
        job.template blocks<Wide>(stores);
    return blocks;
}

// Rows of as many blocks each; or of any width, which are split one by one.
struct Rows {
    size_t count, blocks;
    bool anyWidth = false;
    uint32_t width = 0;   // pixels
    uint32_t narrow = 0;  // rows of fewer pixels are all head
};

struct RowParts {
    uint32_t head;  // units
    size_t blocks;
    uint32_t tail;  // units
};

template <BlockJob J> ORVA_INLINE RowParts split(const J& job, const Rows& rows) {
    if constexpr (Job<J>) {
        if (rows.anyWidth) {
            const uint32_t head =
                rows.width < rows.narrow ? rows.width / J::unitPixels : job.head();
            const uint32_t behindHead = rows.width - head * J::unitPixels;
            return {head, behindHead / J::blockPixels, behindHead % J::blockPixels / J::unitPixels};
        }
    }
    return {0, rows.blocks, 0};
}

// Which of some blocks to stream: whole cache lines only. A line that is partly written past the
// cache costs a transfer to memory of its own, and one that is also written through the cache costs
// several.
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
struct StreamedPart {
    size_t lead, whole;  // whole is 0 where nothing can be streamed
    StreamingBetween stores;
};

template <StreamableJob J> ORVA_INLINE StreamedPart streamedPart(const J& job, size_t blocks) {
    constexpr size_t blockBytes = J::blockPixels * J::streamedPixelBytes;
    static_assert(blockBytes <= cacheLine);  // so that lead <= whole
    const uint8_t* const begin = job.streamed();
    const size_t toLine = -reinterpret_cast<uintptr_t>(begin) % cacheLine;
    if (begin == nullptr || blocks * blockBytes < toLine + cacheLine)
        return {0, 0, StreamingBetween::nothing()};
    const size_t lines = (blocks * blockBytes - toLine) / cacheLine * cacheLine;
    return {(toLine + blockBytes - 1) / blockBytes,
            (toLine + lines) / blockBytes,
            {begin + toLine, begin + toLine + lines}};
}

// Works on a copy of the job as well, and puts its positions back for what is converted apart.
template <bool streaming, BlockJob J> [[gnu::noinline]] void walk(J& job, const Rows& rows) {
    J running = job;
    for (size_t row = 1;; ++row) {
        const RowParts parts = split(running, rows);
        if constexpr (Job<J>)
            if (parts.head > 0)
                convertPart(job, running, Units{parts.head});

        StreamingBetween stores = StreamingBetween::nothing();
        size_t left = 0;
        if constexpr (streaming) {
            const StreamedPart part = streamedPart(running, parts.blocks);
            if (part.whole == 0) {
                job = running;
                walk<false>(job, {.count = 1, .blocks = parts.blocks});
                running = job;
            } else {
                stores = part.stores;
                if (part.lead > 0)
                    convertPart(job, running, OneByOne{part.lead, stores});
                left = convertWide(running, StreamingStores(), part.whole - part.lead) +
                       parts.blocks - part.whole;
            }
        } else {
            left = convertWide(running, OrdinaryStores(), parts.blocks);
        }
        if (left > 0)
            convertPart(job, running, OneByOne{left, stores});

        if constexpr (Job<J>)
            if (parts.tail > 0)
                convertPart(job, running, Units{parts.tail});
        if (row == rows.count)
            break;
        running.endRow();
    }
    job = running;
}

template <BlockJob J> ORVA_INLINE void walkRows(J& job, const Rows& rows, bool streaming) {
    if (rows.count == 0)
        return;
    if constexpr (J::streamedPixelBytes > 0)
        if (streaming)
            return walk<true>(job, rows);
    walk<false>(job, rows);
}

// Rows without gaps are one long row to a walk over whole blocks. Gaps of planes that a conversion
// does not have count as well, which costs no more than the time that is saved here.
ORVA_INLINE bool hasRowGaps(const Descriptor& d) {
    return (d.srcRowGap | d.dstRowGap | d.srcPlane2RowGap | d.dstPlane2RowGap) != 0;
}

template <BlockJob J> ORVA_INLINE void walkWholeBlocks(J job, const Descriptor& d, bool streaming) {
    Rows rows{.count = d.srcHeight, .blocks = d.dstWidth / J::blockPixels};
    if (!hasRowGaps(d)) {
        rows.blocks *= rows.count;
        rows.count = 1;
    }
    walkRows(job, rows, streaming);
}

template <Job J>
ORVA_INLINE void walkAnyWidth(J job, uint32_t rows, uint32_t width, bool streaming,
                              uint32_t narrow = 16) {
    walkRows(job, {.count = rows, .blocks = 0, .anyWidth = true, .width = width, .narrow = narrow},
             streaming);
}

template <Job J> ORVA_INLINE void walkImage(J job, const Descriptor& d, Form form) {
    if (form.fast)
        walkWholeBlocks(job, d, form.streaming);
    else
        walkAnyWidth(job, d.srcHeight, d.dstWidth, form.streaming);
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

// The kernel of a conversion that offers run<clamped>(descriptor, form), so that it costs nothing
// not to clamp luma.
template <class Conversion> void clamping(const Descriptor& d, Form form) {
    if (d.clampStudio)
        Conversion::template run<true>(d, form);
    else
        Conversion::template run<false>(d, form);
}

}  // namespace orva::ORVA_ISA
