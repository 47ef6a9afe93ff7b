// The frames and options of conversion_hashes.txt.
#include "golden/conversion_cases.hpp"

#include "golden/fnv.hpp"

#include <cstdlib>
#include <utility>

namespace orva::golden {
namespace {

constexpr Options optionSets[] = {
    {},
    {.srcMatrix = Matrix::bt601,
     .dstMatrix = Matrix::bt2020,
     .srcRange = Range::full,
     .chroma = Chroma::nearest,
     .alpha = 100},
    {.srcMatrix = Matrix::bt2020,
     .dstMatrix = Matrix::bt601,
     .dstRange = Range::full,
     .alpha = 0,
     .streaming = Streaming::always},
    {.srcRange = Range::full, .dstRange = Range::full, .chroma = Chroma::nearest},
};

struct Size {
    uint32_t width, height;
};
// The one ends within every unit and block; rows of the other are whole cache lines.
constexpr Size sizes[] = {{131, 3}, {192, 2}};

template <class Byte, class Do> void forEachRow(const BasicImageView<Byte>& image, Do act) {
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane, alphaPlane})
        for (uint32_t y = 0; y < image.height && !planeOf(image, plane).bytes.empty(); ++y)
            act(image.row(y, plane));
}

// Formats without planes need none.
ImageView viewOf(std::optional<Image>& image, orva::Format format, Size size) {
    return image ? image->view() : ImageView{format, size.width, size.height, {}, {}, {}, {}};
}

// Noise, in every second row that of the middle quarter of all codes of 8 bits: colours there stay
// within most ranges.
void fill(const ImageView& image) {
    uint32_t x = 1;
    bool soft = false;
    forEachRow(image, [&](std::span<std::byte> row) {
        for (std::byte& byte : row) {
            x = x * 1664525 + 1013904223;
            byte = std::byte(soft ? 96 + (x >> 26) : x >> 24);
        }
        soft = !soft;
    });
}

}  // namespace

std::string Pair::name() const {
    return std::string(formatInfo(source).name) + "_" + std::string(formatInfo(destination).name);
}

std::vector<Pair> pairs() {
    std::vector<Pair> all;
    for (const FormatInfo& source : formats())
        for (const FormatInfo& destination : formats())
            if (canConvert(source.format, destination.format))
                all.push_back({source.format, destination.format});
    return all;
}

void convertCases(const Pair& pair, const Visit& visit) {
    for (const Size size : sizes) {
        auto from = Image::create(pair.source, size.width, size.height);
        auto to = Image::create(pair.destination, size.width, size.height);
        const ImageView source = viewOf(from, pair.source, size);
        const ImageView destination = viewOf(to, pair.destination, size);
        fill(source);
        for (const Options& options : optionSets) {
            // Every byte of its rows is written: nothing is left of the conversion before.
            if (!convert(source, destination, options))
                std::abort();
            visit(source, destination, options);
        }
    }
}

uint64_t hashOf(const Pair& pair) {
    Fnv hash;
    convertCases(pair, [&hash](const ConstImageView&, const ConstImageView& made, const Options&) {
        forEachRow(made, [&hash](std::span<const std::byte> row) {
            hash.add(reinterpret_cast<const uint8_t*>(row.data()), row.size());
        });
    });
    return hash.value;
}

}  // namespace orva::golden
