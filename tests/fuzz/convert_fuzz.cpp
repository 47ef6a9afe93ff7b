// Fuzz target of the checked interface. The input describes one call: kernels, formats, sizes,
// planes anywhere in memory and options, sound at first (an input of zeros is a sound call), then
// disturbed. Whatever the call, it reads and writes nothing but the rows it is given, an accepted
// one makes the picture that the scalar model makes, and a refused one changes nothing.
#include "frame/active_kernels.hpp"
#include "support/picture.hpp"

#include <orva/convert.hpp>

#include <sanitizer/asan_interface.h>

#include <array>
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

enum ArenaIndex : std::uint32_t { sourceColour, sourceAlpha, targetColour, targetAlpha, noArena };

// Blocks of memory that planes lie in, as short as these allow.
using Arenas = std::array<Memory, noArena>;

struct Layout {
    Format format = Format::A8C;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::array<Place, planeCount> planes;

    template <class Byte, class ArenasOrConst>
    BasicImageView<Byte> in(ArenasOrConst& arenas) const {
        const auto plane = [&](const Place& place) {
            return place.arena == noArena
                       ? BasicPlane<Byte>{{}, place.pitch}
                       : BasicPlane<Byte>{
                             std::span<Byte>(arenas[place.arena]).subspan(place.offset, place.size),
                             place.pitch};
        };
        return {format, width, height, plane(planes[0]), plane(planes[1]), plane(planes[2])};
    }
};

struct Call {
    Layout source;
    Layout target;
    Options options;
    RowRange rows;
};

// Half of all addresses and pitches are multiples of 16: fast kernels want both.
void chooseOffsetAndPitch(Input& input, std::uint32_t rowBytes, std::uint32_t& offset,
                          std::uint32_t& pitch) {
    const std::uint32_t place = input.byte();
    offset = place < 128 ? place % 8 * 16 : place % 64;
    const std::uint32_t gap = input.byte();
    pitch = gap < 128 ? (rowBytes + 15) / 16 * 16 + gap % 4 * 16 : rowBytes + gap % 64;
}

Layout chooseLayout(Input& input, Format format, std::uint32_t width, std::uint32_t height,
                    std::uint32_t firstArena) {
    Layout layout{format, width, height, {}};
    layout.planes.fill({noArena, 0, 0, 0});
    const auto bytes = bytesPerPixel(format);
    const bool bottomUp = input.below(2) != 0;
    for (const std::size_t which : {0, 2}) {
        const std::uint32_t rowBytes = width * bytes[which];
        std::uint32_t offset = 0, pitch = 0;
        chooseOffsetAndPitch(input, rowBytes, offset, pitch);
        if (bytes[which] == 0) {
            continue;
        }
        const std::uint32_t size = height == 0 ? 0 : pitch * (height - 1) + rowBytes;
        const auto signedPitch = static_cast<std::ptrdiff_t>(pitch);
        Place& plane = layout.planes[which];
        plane = {firstArena + (which == 2), offset, size, bottomUp ? -signedPitch : signedPitch};
        if (which == 0 && bytes[1] > 0) {
            // Behind luma, before it if rows run upwards.
            Place& chroma = layout.planes[1] = plane;
            (bottomUp ? plane : chroma).offset += pitch * height;
        }
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
    static const std::vector<Conversion> pairs = conversions();
    Conversion pair = pairs[input.below(static_cast<std::uint32_t>(pairs.size()))];
    if (input.disturbs()) {
        const auto any = [&] { return formats()[input.below(formats().size())].format; };
        pair = {any(), any()};
    }
    std::uint32_t width = input.below(101);
    if (!input.disturbs() && (isYcbcr(pair.source) || isYcbcr(pair.destination))) {
        width &= ~1u;
    }
    const std::uint32_t height = input.below(9);
    Call call;
    call.source = chooseLayout(input, pair.source, width, height, sourceColour);
    call.target = chooseLayout(input, pair.destination, width, height, targetColour);

    const std::uint32_t flags = input.byte();
    call.options = {.srcMatrix = flags & 1 ? Matrix::bt601 : Matrix::bt709,
                    .dstMatrix = flags & 2 ? Matrix::bt601 : Matrix::bt709,
                    .range = flags & 4 ? Range::full : Range::studio,
                    .clampStudio = (flags & 8) != 0,
                    .alpha = input.byte(),
                    .streaming = (flags & 16) != 0};
    if (flags & 32) {
        call.rows = {input.below(height + 1), input.below(9)};
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
    }
    if (input.disturbs()) {
        call.options.alpha = static_cast<int>(input.number());
        call.options.dstMatrix = static_cast<Matrix>(input.below(4));
        call.options.range = static_cast<Range>(input.below(4));
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
    for (std::size_t p = 0; p < planeCount; ++p) {
        const auto& plane = planeOf(image, p);
        const std::uint64_t rowBytes = std::uint64_t{image.width} * bytesPerPixel(image.format)[p];
        const auto pitch = static_cast<std::uint64_t>(plane.pitch);
        const std::uint64_t distance = plane.pitch < 0 ? 0 - pitch : pitch;
        for (std::uint32_t y = first; y < std::min(end, image.height); ++y) {
            const std::uint64_t above = plane.pitch < 0 ? image.height - 1 - y : y;
            if (above > 0 && distance > plane.bytes.size()) {
                continue;
            }
            if (distance * above + rowBytes <= plane.bytes.size()) {
                ASAN_UNPOISON_MEMORY_REGION(plane.bytes.data() + distance * above, rowBytes);
            }
        }
    }
}

// Only the sub-image of these rows; it serves copyRows() and the model, not convert().
template <class Byte>
BasicImageView<Byte> rowsOf(const BasicImageView<Byte>& image, std::uint32_t first,
                            std::uint32_t count) {
    BasicImageView<Byte> part = image;
    BasicPlane<Byte>* const planes[] = {&part.main, &part.chroma, &part.alpha};
    for (std::size_t p = 0; p < planeCount; ++p) {
        if (bytesPerPixel(image.format)[p] > 0) {
            const auto distance = static_cast<std::size_t>(std::abs(planes[p]->pitch));
            planes[p]->bytes = planes[p]->bytes.subspan(
                distance * (planes[p]->pitch < 0 ? image.height - first - count : first));
        }
    }
    part.height = count;
    return part;
}

[[noreturn]] void fail(const Call& call, const Result& result, const char* what) {
    fprintf(stderr, "%s: %s, %s\n", what, nameOf(call.source.format, call.target.format).c_str(),
            result.describe().c_str());
    for (const Layout& layout : {call.source, call.target}) {
        fprintf(stderr, "%ux%u", layout.width, layout.height);
        for (const Place& place : layout.planes) {
            fprintf(stderr, "; arena %u + %u, %u bytes, pitch %td", place.arena, place.offset,
                    place.size, place.pitch);
        }
        fputc('\n', stderr);
    }
    fprintf(stderr, "rows %u + %u, matrices %d %d, range %d, clamp %d, alpha %d, streaming %d\n",
            call.rows.first, call.rows.count, int(call.options.srcMatrix),
            int(call.options.dstMatrix), int(call.options.range), call.options.clampStudio,
            call.options.alpha, call.options.streaming);
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
        if (sound && result.code != ErrorCode::misaligned &&
            result.code != ErrorCode::wrongLayout) {
            fail(call, result, "sound, but refused");
        }
    } else if (source.width > 0 && count > 0) {
        const auto from = rowsOf(call.source.in<const std::byte>(before), first, count);
        const auto to = rowsOf(call.target.in<std::byte>(expected), first, count);
        if (!makePicture(from, to, call.options)) {
            fail(call, result, "accepted, but unknown to the model");
        }
    }
    if (arenas != expected) {
        fail(call, result, result ? "another picture than the model's" : "refused, but written");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({data, size});
    const KernelTable& table = kernelTables[input.below(kernelTableCount)];
    activeKernels = (table.isSupported() ? table : kernelTables[0]).kernels;
    Random random(input.byte());
    const Call call = chooseCall(input);
    Arenas arenas = makeArenas(call, random);
    run(call, !input.disturbed, arenas);
    return 0;
}
