// What a call of each export asks for and reaches, sizes that keep its contract, and the comparison
// of all memory with what the model makes of it.
#include "support/case.hpp"

#include "reference/model.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

namespace test {

namespace {

using Descriptor = OrvaConversionDescriptor;

// Memory that starts on a 64-byte boundary.
class Arena {
public:
    std::span<uint8_t> ofSize(size_t size) {
        if (storage.size() < size + 64)
            storage.resize(2 * size + 64);
        uint8_t* const start =
            storage.data() + (64 - reinterpret_cast<uintptr_t>(storage.data()) % 64);
        return {start, size};
    }

private:
    std::vector<uint8_t> storage;
};

// Where a plane's first row stands in an arena, far enough from both ends for rows in either
// direction, a second plane behind them and a guard zone.
class Layout {
public:
    size_t place(uint32_t offset, size_t reach) {
        const size_t first = (size + guard + reach + 63) / 64 * 64 + offset;
        size = first + reach + guard;
        return first;
    }
    size_t end() const { return size; }

private:
    static constexpr size_t guard = 128;
    size_t size = 0;
};

uint32_t rowBytes(const Export& conversion, const Format& format, uint32_t width) {
    const bool pairs = (conversion.source.isYuv() || conversion.destination.isYuv()) &&
                       conversion.destination.main != "A8P";
    return format.bytesPerPixel() * (pairs ? width & ~1u : width);
}

// How far from its first row an image's main plane, and the chroma plane behind it, can reach in
// either direction. Modes read up to four pixels for one, write two, and step over up to eight
// lines from row to row.
size_t reachOf(const Descriptor& d, const Format& format, int32_t gap, int32_t pitch) {
    const size_t planes = format.isSemiPlanar() ? 2 : 1;
    const size_t lines = std::max(d.srcHeight, d.dstHeight) + 1;
    const size_t row = format.bytesPerPixel() * d.dstWidth + 16 + size_t(std::abs(gap));
    if (d.kernelMode >= 1 && d.kernelMode <= 3)
        return lines * (8 * row + 10 * size_t(std::abs(pitch)));
    return lines * planes * row;
}

size_t reachOfAlpha(const Descriptor& d, int32_t gap) {
    return (d.srcHeight + 1) * (d.dstWidth + size_t(std::abs(gap)));
}

bool isNamed(const Export& conversion, std::initializer_list<std::string_view> pairs) {
    for (const std::string_view pair : pairs)
        if (conversion.source.main == pair.substr(0, pair.find('>')) &&
            conversion.destination.main == pair.substr(pair.find('>') + 1))
            return true;
    return false;
}

void alignTo(uint32_t multiple, uint32_t& offset) { offset -= offset % multiple; }

// Makes gap the next larger one with which rows keep their address modulo `multiple`.
void alignStep(uint32_t multiple, uint32_t row, int32_t& gap) {
    const int32_t past = int32_t((uint32_t(gap) + row) % multiple);
    gap += past == 0 ? 0 : int32_t(multiple) - past;
}

void moveLike(uint32_t dstOffset, uint32_t dstStep, uint32_t srcRow, uint32_t& srcOffset,
              int32_t& srcGap) {
    srcOffset = srcOffset / 16 * 16 + dstOffset % 16;
    srcGap += int32_t((dstStep - (srcRow + uint32_t(srcGap))) % 16);
}

}  // namespace

Shape randomShape(Random& random) {
    const bool contiguous = pick(random, 4) == 0;
    const auto gap = [&] {
        constexpr int32_t gaps[] = {0, 16, 96, 1, 6, 20, 44, 64};
        const int32_t size = gaps[pick(random, 8)];
        // Negative gaps below minus a row walk upwards. Without any gap the picture is one row.
        return contiguous ? 0 : pick(random, 3) == 0 ? -size - 320 : size;
    };
    const auto offset = [&] { return pick(random, 3) == 0 ? 0 : pick(random, 64); };
    const auto pitch = [&]() -> std::optional<int32_t> {
        constexpr int32_t pitches[] = {96, 32, 16, 48, 8, -64, -48, -16};
        if (pick(random, 2) == 0)
            return std::nullopt;
        return pitches[pick(random, 8)];
    };
    return {.width = pick(random, 4) == 0 ? 16 * pick(random, 14) : pick(random, 150),
            .height = pick(random, 5),
            .linesBelow = pick(random, 3),
            .srcOffset = offset(),
            .srcAlphaOffset = offset(),
            .dstOffset = offset(),
            .dstAlphaOffset = offset(),
            .srcGap = gap(),
            .srcAlphaGap = gap(),
            .dstGap = gap(),
            .dstAlphaGap = gap(),
            .srcPitch = pitch(),
            .dstPitch = pitch(),
            .dstAlphaPitch = pitch()};
}

Descriptor randomOptions(Random& random) {
    constexpr int32_t codes[] = {0, 1, 1, 0, 2, -1};
    constexpr int32_t alphas[] = {0, 1, 127, 128, 255, 256, 300, 0x8000, 65535, -1, 70000};
    Descriptor d{};
    d.srcWidth = random();
    d.srcColorSpace = codes[pick(random, 6)];
    d.dstColorSpace = codes[pick(random, 6)];
    d.srcRange = int32_t(random());
    d.dstRange = int32_t(random());
    d.dstLinePairAdjacent = uint8_t(random());
    d.alphaValue = alphas[pick(random, 11)];
    d.fullRange = uint8_t(pick(random, 3));
    d.streamingStores = uint8_t(pick(random, 3));
    d.clampStudio = uint8_t(pick(random, 3));
    d.reserved = uint8_t(random());
    d.srcLinePairAdjacent = uint8_t(pick(random, 3));
    d.lineMode = int32_t(pick(random, 5)) - 1;
    // No mode's number, which means mode 0.
    d.kernelMode = pick(random, 2) == 0 ? 0 : int32_t(random() | 8);
    return d;
}

void keepContract(const Export& conversion, Shape& shape) {
    const Format &source = conversion.source, &destination = conversion.destination;
    const uint32_t srcRow = rowBytes(conversion, source, shape.width);
    const uint32_t dstRow = rowBytes(conversion, destination, shape.width);

    const bool fromYuv = source.isYuv();
    const uint32_t dstAlignment = fromYuv && destination.main == "BGR32I"   ? 8
                                  : fromYuv && destination.isPacked()       ? 4
                                  : fromYuv && destination.main == "BGR24I" ? 2
                                  : isNamed(conversion, {"BGR32I>BGR32I"})  ? 4
                                                                            : 1;
    alignTo(dstAlignment, shape.dstOffset);
    alignStep(dstAlignment, dstRow, shape.dstGap);

    // The second plane's place follows from the pitch.
    if (source.isSemiPlanar())
        shape.srcPitch.reset();
    if (destination.isSemiPlanar())
        shape.dstPitch.reset();

    // Where a fast kernel may be chosen, every row has to be fit for it on both sides.
    const bool fastColour = shape.dstOffset % 16 == 0 && shape.width % 8 == 0;
    if (fastColour) {
        alignTo(16, shape.srcOffset);
        alignStep(16, srcRow, shape.srcGap);
        alignStep(16, dstRow, shape.dstGap);
    }
    if (fastColour || (shape.dstAlphaOffset % 16 == 0 && shape.width % 32 == 0)) {
        alignTo(16, shape.srcAlphaOffset);
        alignTo(16, shape.dstAlphaOffset);
        alignStep(16, shape.width, shape.srcAlphaGap);
        alignStep(16, shape.width, shape.dstAlphaGap);
    }
    // Kernels with aligned loads behind a lead-in.
    if (isNamed(conversion, {"BGR32I>BGR32I", "A8P>A8P", "UYVY16I>YUYV16I", "YUYV16I>UYVY16I"}))
        moveLike(shape.dstOffset, dstRow + uint32_t(shape.dstGap), srcRow, shape.srcOffset,
                 shape.srcGap);
    if (source.alphaPlane && destination.main == "A8P")
        moveLike(shape.dstOffset, dstRow + uint32_t(shape.dstGap), shape.width,
                 shape.srcAlphaOffset, shape.srcAlphaGap);
    if (source.alphaPlane && destination.alphaPlane)
        moveLike(shape.dstAlphaOffset, shape.width + uint32_t(shape.dstAlphaGap), shape.width,
                 shape.srcAlphaOffset, shape.srcAlphaGap);
}

bool agree(const Export& conversion, const Shape& shape, const Descriptor& options,
           Random& random) {
    static Arena sourceArena, pristineArena, libraryArena, modelArena;

    Descriptor d = options;
    d.dstWidth = shape.width;
    d.srcHeight = shape.height;
    d.dstHeight = shape.height + shape.linesBelow;
    d.srcRowGap = shape.srcGap;
    d.srcPlane2RowGap = shape.srcAlphaGap;
    d.dstRowGap = shape.dstGap;
    d.dstPlane2RowGap = shape.dstAlphaGap;
    const auto step = [&](const Format& format, int32_t gap) {
        return int32_t(rowBytes(conversion, format, shape.width)) + gap;
    };
    d.srcPitch = shape.srcPitch.value_or(step(conversion.source, shape.srcGap));
    d.dstPitch = shape.dstPitch.value_or(step(conversion.destination, shape.dstGap));
    d.srcPlane2Pitch = int32_t(shape.width) + shape.srcAlphaGap;
    d.dstPlane2Pitch = shape.dstAlphaPitch.value_or(int32_t(shape.width) + shape.dstAlphaGap);

    Layout sources, destinations;
    const size_t src =
        sources.place(shape.srcOffset, reachOf(d, conversion.source, d.srcRowGap, d.srcPitch));
    const size_t srcAlpha = sources.place(shape.srcAlphaOffset, reachOfAlpha(d, d.srcPlane2RowGap));
    const size_t dst = destinations.place(
        shape.dstOffset, reachOf(d, conversion.destination, d.dstRowGap, d.dstPitch));
    const size_t dstAlpha =
        destinations.place(shape.dstAlphaOffset, reachOfAlpha(d, d.dstPlane2RowGap));

    const auto source = sourceArena.ofSize(sources.end());
    const auto pristine = pristineArena.ofSize(sources.end());
    const auto library = libraryArena.ofSize(destinations.end());
    const auto model = modelArena.ofSize(destinations.end());
    std::ranges::copy(runs(source.size(), random), source.begin());
    std::ranges::copy(source, pristine.begin());
    // What is still poison on both sides was written by neither.
    const auto poison = runs(library.size(), random);
    std::ranges::copy(poison, library.begin());
    std::ranges::transform(poison, model.begin(), [](uint8_t byte) { return uint8_t(~byte); });

    d.srcData = &source[src];
    d.srcPlane2Data = &source[srcAlpha];
    d.dstData = &library[dst];
    d.dstPlane2Data = &library[dstAlpha];
    const Descriptor given = d;
    conversion.call(&d);
    EXPECT_EQ(memcmp(&d, &given, sizeof d), 0) << "the caller's descriptor changed";
    d.dstData = &model[dst];
    d.dstPlane2Data = &model[dstAlpha];
    EXPECT_TRUE(reference::convert(conversion.name, d));

    EXPECT_EQ(memcmp(source.data(), pristine.data(), source.size()), 0) << "the source changed";
    // Without branches, so that the loop over all of memory is fast.
    const auto differs = [&](size_t i) {
        const int touched = int(library[i] != poison[i]) | int(model[i] != uint8_t(~poison[i]));
        return int(library[i] != model[i]) & touched;
    };
    int anyDiffers = 0;
    for (size_t i = 0; i < library.size(); ++i)
        anyDiffers |= differs(i);
    for (size_t i = 0; anyDiffers; ++i) {
        if (!differs(i))
            continue;
        ADD_FAILURE() << conversion.name << ": byte " << ptrdiff_t(i - dst)
                      << " from the main plane, " << ptrdiff_t(i - dstAlpha)
                      << " from the alpha plane: library " << int(library[i]) << ", model "
                      << int(model[i]) << " (poison " << int(poison[i]) << ", "
                      << int(uint8_t(~poison[i])) << ")\nwidth " << shape.width << ", height "
                      << shape.height << ", offsets " << shape.srcOffset << " "
                      << shape.srcAlphaOffset << " " << shape.dstOffset << " "
                      << shape.dstAlphaOffset << ", gaps " << d.srcRowGap << " "
                      << d.srcPlane2RowGap << " " << d.dstRowGap << " " << d.dstPlane2RowGap
                      << ", pitches " << d.srcPitch << " " << d.dstPitch << " " << d.dstPlane2Pitch
                      << ", codes " << d.srcColorSpace << " " << d.dstColorSpace << ", alpha "
                      << d.alphaValue << ", full " << int(d.fullRange) << ", clamp "
                      << int(d.clampStudio) << ", streaming " << int(d.streamingStores)
                      << ", modes " << d.kernelMode << " " << d.lineMode;
        return false;
    }
    return true;
}

}  // namespace test
