// Fuzz target of the checked library. The input describes one call: kernels, formats, sizes, planes
// anywhere in memory and options, sound at first (an input of zeros is a sound call), then
// disturbed. Whatever the call, it reads and writes nothing but the rows it is given, an accepted
// one makes the picture that the model makes, and a refused one changes nothing.
#include "picture/active_kernels.hpp"
#include "support/picture.hpp"

#include <sanitizer/asan_interface.h>

#include <algorithm>
#include <cstdio>
#include <span>

using namespace orva;
using namespace test;

namespace {

class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes) : rest(bytes) {}

    // 0 when all bytes are used up.
    std::uint8_t byte() {
        const std::uint8_t value = rest.empty() ? 0 : rest.front();
        rest = rest.subspan(rest.empty() ? 0 : 1);
        return value;
    }
    std::uint32_t below(std::uint32_t count) { return byte() % count; }
    // Of any magnitude.
    std::int64_t number() {
        std::uint64_t value = 0;
        for (int i = 0; i < 8; ++i) {
            value = value << 8 | byte();
        }
        return static_cast<std::int64_t>(value) >> below(64);
    }
    // Whether to leave what is sound.
    bool disturbs() {
        const bool yes = byte() >= 240;
        disturbed = disturbed || yes;
        return yes;
    }

    bool disturbed = false;

private:
    std::span<const std::uint8_t> rest;
};

// A plane's place in one of the arenas.
struct Place {
    std::uint32_t arena = 0;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    std::ptrdiff_t pitch = 0;
};

// Blocks of memory that planes lie in, as short as these allow: at first one for each plane of the
// source and then of the target.
constexpr std::uint32_t noArena = 2 * planeCount;
using Arenas = std::array<Memory, noArena>;

struct Layout {
    Format format = Format::A8C;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::array<Place, planeCount> planes;

    template <class Byte, class ArenasOrConst>
    BasicImageView<Byte> in(ArenasOrConst& arenas) const {
        BasicImageView<Byte> image{format, width, height, {}, {}, {}, {}};
        for (const PlaneIndex p : planeIndices) {
            const auto& [arena, offset, size, pitch] = planes[p];
            planeOf(image, p).pitch = pitch;
            if (arena != noArena) {
                planeOf(image, p).bytes = std::span<Byte>(arenas[arena]).subspan(offset, size);
            }
        }
        return image;
    }
};

struct Call {
    Layout source;
    Layout target;
    Options options;
    RowRange rows;
};

Layout chooseLayout(Input& input, Format format, std::uint32_t width, std::uint32_t height,
                    std::uint32_t firstArena) {
    Layout layout{format, width, height, {}};
    layout.planes.fill({noArena, 0, 0, 0});
    for (const PlaneIndex p : planeIndices) {
        const auto row = static_cast<std::uint32_t>(rowBytes(format, p, width));
        if (formatInfo(format).planes[p].unitBytes == 0) {
            continue;
        }
        // Half of all addresses and pitches are multiples of 16.
        const std::uint32_t place = input.byte(), gap = input.byte();
        const std::uint32_t offset = place < 128 ? place % 8 * 16 : place % 64;
        const std::uint32_t pitch =
            gap < 128 ? (row + 15) / 16 * 16 + gap % 4 * 16 : row + gap % 64;
        const std::uint32_t size = height == 0 ? 0 : pitch * (height - 1) + row;
        const auto signedPitch = static_cast<std::ptrdiff_t>(pitch);
        layout.planes[p] = {firstArena + p, offset, size,
                            input.below(2) ? -signedPitch : signedPitch};
    }
    return layout;
}

void disturb(Input& input, Place& place, const Call& call) {
    const auto any = [&]() -> const Place& {
        return (input.below(2) ? call.source : call.target).planes[input.below(planeCount)];
    };
    switch (input.below(9)) {
    case 0:
        place.pitch = input.number();
        break;
    case 1:
        place.pitch = -place.pitch;
        break;
    case 2:
        place.pitch = static_cast<std::int8_t>(input.byte());
        break;
    case 3:
        place.pitch += static_cast<std::int8_t>(input.byte());
        break;
    case 4:
        place.size -= std::min<std::uint32_t>(place.size, input.byte());
        break;
    case 5:
        place.size += input.byte();
        break;
    case 6:
        place.offset = input.byte() * (1 + input.below(32));
        break;
    case 7:
        place = any();
        break;
    case 8:
        place.arena = any().arena;
        break;
    }
}

Call chooseCall(Input& input) {
    const auto anyFormat = [&] { return formats()[input.below(formats().size())].format; };
    const Format from = anyFormat();
    Format to = anyFormat();
    if (!input.disturbs()) {
        while (!canConvert(from, to)) {
            to = formats()[(static_cast<std::size_t>(to) + 1) % formats().size()].format;
        }
    }
    // Up to more than one of the strips that rows are converted in.
    const std::uint32_t size = input.byte();
    const std::uint32_t width = size < 192 ? size : 192 + (size - 192) * 13;
    // Some narrow ones of more rows than a strip holds.
    const std::uint32_t rows = input.byte();
    const std::uint32_t height = rows < 240 || width > 32 ? rows % 9 : (rows - 240) * 8;
    Call call;
    call.source = chooseLayout(input, from, width, height, 0);
    call.target = chooseLayout(input, to, width, height, planeCount);

    const std::uint32_t flags = input.byte(), matrices = input.byte();
    call.options = {.srcMatrix = static_cast<Matrix>(matrices % 3),
                    .dstMatrix = static_cast<Matrix>(matrices / 3 % 3),
                    .srcRange = flags & 1 ? Range::full : Range::studio,
                    .dstRange = flags & 2 ? Range::full : Range::studio,
                    .chroma = flags & 4 ? Chroma::nearest : Chroma::cosited,
                    .alpha = input.byte(),
                    .streaming = static_cast<Streaming>(matrices / 9 % 3)};
    if (flags & 8) {
        call.rows = {input.below(height + 1), input.below(9)};
    }
    const std::uint32_t inPlace = input.byte();  // a bit for each plane
    for (const PlaneIndex p : commonPlanes(from, to)) {
        if (inPlace >> p & 1) {
            call.target.planes[p] = call.source.planes[p];
        }
    }
    for (Layout* layout : {&call.source, &call.target}) {
        for (Place& place : layout->planes) {
            if (input.disturbs()) {
                disturb(input, place, call);
            }
        }
        if (input.disturbs()) {
            layout->width = static_cast<std::uint32_t>(input.number());
            layout->height = static_cast<std::uint32_t>(input.number());
        }
        if (input.disturbs()) {
            layout->format = static_cast<Format>(input.byte());
        }
    }
    if (input.disturbs()) {
        call.options.alpha = static_cast<int>(input.number());
        call.options.dstMatrix = static_cast<Matrix>(input.below(5));
        call.options.srcRange = static_cast<Range>(input.below(4));
        call.options.chroma = static_cast<Chroma>(input.below(4));
        call.rows = {static_cast<std::uint32_t>(input.number()),
                     static_cast<std::uint32_t>(input.number())};
    }
    return call;
}

Arenas makeArenas(const Call& call, Random& random) {
    Arenas arenas;
    for (const Layout& layout : {call.source, call.target}) {
        for (const Place& place : layout.planes) {
            if (place.arena != noArena) {
                auto& arena = arenas[place.arena];
                arena.resize(std::max<std::size_t>(arena.size(), place.offset + place.size));
            }
        }
    }
    for (Memory& arena : arenas) {
        fill(arena, random);
    }
    return arenas;
}

// Images larger than this are refused or empty: the arenas have no room for them.
constexpr std::uint32_t maximumSize = 1 << 16;

// Lets the sanitizer pass what lies in both the plane and its rows.
template <class Byte>
void permitRows(const BasicImageView<Byte>& image, std::uint32_t first, std::uint32_t end) {
    if (image.width > maximumSize || image.height > maximumSize) {
        return;
    }
    for (const PlaneIndex p : planeIndices) {
        const auto& plane = planeOf(image, p);
        const std::uint64_t bytes = rowBytes(image.format, p, image.width);
        const auto pitch = static_cast<std::uint64_t>(plane.pitch);
        const std::uint64_t distance = plane.pitch < 0 ? 0 - pitch : pitch;
        for (std::uint32_t y = first; y < std::min(end, image.height); ++y) {
            const std::uint64_t above = plane.pitch < 0 ? image.height - 1 - y : y;
            if (above > 0 && distance > plane.bytes.size()) {
                continue;
            }
            if (distance * above + bytes <= plane.bytes.size()) {
                ASAN_UNPOISON_MEMORY_REGION(plane.bytes.data() + distance * above, bytes);
            }
        }
    }
}

[[noreturn]] void fail(const Call& call, const Result& result, const std::string& what) {
    fprintf(stderr, "%s: %s, %s\n", what.c_str(),
            nameOf(call.source.format, call.target.format).c_str(), result.describe().c_str());
    for (const Layout& layout : {call.source, call.target}) {
        fprintf(stderr, "%ux%u", layout.width, layout.height);
        for (const Place& place : layout.planes) {
            fprintf(stderr, "; arena %u + %u, %u bytes, pitch %td", place.arena, place.offset,
                    place.size, place.pitch);
        }
        fputc('\n', stderr);
    }
    fprintf(stderr, "rows %u + %u, %s\n", call.rows.first, call.rows.count,
            describe(call.options).c_str());
    abort();
}

void run(const Call& call, bool sound, Arenas& arenas) {
    const auto source = call.source.in<const std::byte>(arenas);
    const auto target = call.target.in<std::byte>(arenas);
    const Arenas before = arenas;
    const std::uint32_t height = source.height;
    const std::uint32_t first = std::min(call.rows.first, height);
    const std::uint32_t count = std::min(call.rows.count, height - first);

    for (const Memory& arena : arenas) {
        ASAN_POISON_MEMORY_REGION(arena.data(), arena.size());
    }
    permitRows(source, first, first + count);
    permitRows(target, first, first + count);
    const Result result = convert(source, target, call.options, call.rows);
    for (const Memory& arena : arenas) {
        ASAN_UNPOISON_MEMORY_REGION(arena.data(), arena.size());
    }

    Arenas expected = before;
    if (!result) {
        if (result.field.empty() || result.advice.empty() || result.describe().empty()) {
            fail(call, result, "refused without a reason");
        }
        if (sound) {
            fail(call, result, "sound, but refused");
        }
    } else if (source.width > 0 && count > 0) {
        const auto from = call.source.in<const std::byte>(before);
        const Judgement judgement = judge(from, target, call.options, first, count);
        if (!judgement.fault.empty()) {
            fail(call, result, judgement.fault);
        }
        copyRows(target, call.target.in<std::byte>(expected), first, count);
    }
    if (arenas != expected) {
        fail(call, result, result ? "bytes outside of the rows changed" : "refused, but written");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({data, size});
    const picture::Table& table = picture::tables[input.below(kernelTableCount)];
    picture::activeKernels = (table.isSupported() ? table : picture::tables[0]).kernels;
    Random random(input.byte());
    const Call call = chooseCall(input);
    Arenas arenas = makeArenas(call, random);
    run(call, !input.disturbed, arenas);
    return 0;
}
