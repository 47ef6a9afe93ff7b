// Formats as tables of where their samples lie, and the formulas of the recommendations as they
// stand there.
#include "reference/picture.hpp"

#include <algorithm>

namespace reference {

using namespace orva;

namespace {

// Where a component's samples lie: sample i begins at byte first + i / run * step + i % run of its
// plane's row. A step of 0 means that there are none. In V210 tenths of 32-bit words take the place
// of bytes, three to a word.
struct Place {
    PlaneIndex plane = mainPlane;
    std::uint8_t first = 0;
    std::uint8_t step = 0;
    std::uint8_t run = 1;

    std::size_t operator[](std::size_t i) const { return first + i / run * step + i % run; }
};

enum class Kind { alpha, rgb, ycbcr };

struct Layout {
    Kind kind = Kind::alpha;
    std::array<Place, componentCount> places;
    int bits = 8;
    int shift = 0;  // of a sample in a word of 16 bits
    bool isV210 = false;
};

constexpr Layout ycbcr(Place y, Place cb, Place cr, int bits = 8, int shift = 0,
                       bool isV210 = false) {
    return {Kind::ycbcr, {y, cb, cr, {}}, bits, shift, isV210};
}
constexpr Layout rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                     std::uint8_t pixelBytes) {
    const auto at = [&](std::uint8_t first) { return Place{mainPlane, first, pixelBytes}; };
    return {Kind::rgb, {at(red), at(green), at(blue), {}}};
}
constexpr Layout withAlpha(Layout layout, Place alpha) {
    layout.places[alphaComponent] = alpha;
    return layout;
}

constexpr Layout uyvy = ycbcr({mainPlane, 1, 2}, {mainPlane, 0, 4}, {mainPlane, 2, 4});
constexpr Layout yuyv = ycbcr({mainPlane, 0, 2}, {mainPlane, 1, 4}, {mainPlane, 3, 4});
constexpr Layout uvyy = ycbcr({mainPlane, 2, 4, 2}, {mainPlane, 0, 4}, {mainPlane, 1, 4});
constexpr Layout semiPlanar = ycbcr({mainPlane, 0, 1}, {chromaPlane, 0, 2}, {chromaPlane, 1, 2});
constexpr Place ownPlane = {alphaPlane, 0, 1};

constexpr Layout layouts[] = {
    uyvy,
    yuyv,
    uvyy,
    semiPlanar,
    withAlpha(rgb(2, 1, 0, 4), {mainPlane, 3, 4}),  // BGR32I
    rgb(2, 1, 0, 3),                                // BGR24I
    withAlpha({}, {mainPlane, 0, 1}),               // A8P
    withAlpha(uyvy, ownPlane),
    withAlpha(yuyv, ownPlane),
    withAlpha(uvyy, ownPlane),
    withAlpha(semiPlanar, ownPlane),
    withAlpha(rgb(2, 1, 0, 3), ownPlane),                                         // BGR24IA8P
    {},                                                                           // A8C
    rgb(0, 1, 2, 3),                                                              // RGB24I
    withAlpha(rgb(0, 1, 2, 4), {mainPlane, 3, 4}),                                // RGB32I
    withAlpha(rgb(1, 2, 3, 4), {mainPlane, 0, 4}),                                // ARGB32I
    withAlpha(rgb(3, 2, 1, 4), {mainPlane, 0, 4}),                                // ABGR32I
    ycbcr({mainPlane, 0, 1}, {chromaPlane, 0, 1}, {crPlane, 0, 1}),               // Y8PU8PV8P
    ycbcr({mainPlane, 1, 2}, {mainPlane, 0, 4}, {mainPlane, 2, 4}, 10, 0, true),  // V210
    ycbcr({mainPlane, 0, 2}, {chromaPlane, 0, 4}, {chromaPlane, 2, 4}, 10, 6),    // Y10PUV10I
    ycbcr({mainPlane, 0, 2}, {chromaPlane, 0, 2}, {crPlane, 0, 2}, 10),           // Y10PU10PV10P
    withAlpha(rgb(0, 1, 2, 3), ownPlane),                                         // RGB24IA8P
};
static_assert(std::size(layouts) == static_cast<std::size_t>(Format::RGB24IA8P) + 1);

const Layout& layoutOf(Format format) { return layouts[static_cast<std::size_t>(format)]; }

std::size_t countIn(const Layout& layout, std::size_t component, std::uint32_t width) {
    const bool isChroma =
        layout.kind == Kind::ycbcr && (component == cbOrGreen || component == crOrBlue);
    return layout.places[component].step == 0 ? 0 : isChroma ? (std::size_t{width} + 1) / 2 : width;
}

int wordAt(const std::byte* at) { return int(at[0]) | int(at[1]) << 8; }
void setWord(std::byte* at, int word) {
    at[0] = std::byte(word & 255);
    at[1] = std::byte(word >> 8);
}

// The parts of red and blue in luma; the rest is green's.
struct Weights {
    double red, blue;
    double green() const { return 1 - red - blue; }
};
Weights weightsOf(Matrix matrix) {
    switch (matrix) {
    case Matrix::bt601:
        return {0.299, 0.114};
    case Matrix::bt709:
        return {0.2126, 0.0722};
    case Matrix::bt2020:
        break;
    }
    return {0.2627, 0.0593};
}

// Codes of black and of no colour, and how many codes luma from 0 to 1 and chroma from -1/2 to 1/2
// span.
struct Scale {
    double black, luma, neutral, chroma;
};
Scale scaleOf(Range range, int bits) {
    const double unit = 1 << (bits - 8), all = (1 << bits) - 1;
    return range == Range::studio ? Scale{16 * unit, 219 * unit, 128 * unit, 224 * unit}
                                  : Scale{0, all, 128 * unit, all};
}

}  // namespace

std::size_t sampleCount(Format format, std::size_t component, std::uint32_t width) {
    return countIn(layoutOf(format), component, width);
}

void read(Format format, std::uint32_t width, const RowStarts<const std::byte>& from,
          Row<int>& samples) {
    const Layout& layout = layoutOf(format);
    for (std::size_t c = 0; c < componentCount; ++c) {
        const Place place = layout.places[c];
        const std::byte* const row = from[place.plane];
        const bool isByte = layout.bits == 8 || c == alphaComponent;
        samples[c].resize(countIn(layout, c, width));
        for (std::size_t i = 0; i < samples[c].size(); ++i) {
            const std::size_t at = place[i];
            if (layout.isV210) {
                const std::byte* const word = row + at / 3 * 4;
                samples[c][i] = (wordAt(word) | wordAt(word + 2) << 16) >> (at % 3 * 10) & 1023;
            } else {
                samples[c][i] = isByte ? int(row[at]) : wordAt(row + at) >> layout.shift & 1023;
            }
        }
    }
}

void write(Format format, std::uint32_t width, const Row<int>& samples,
           const RowStarts<std::byte>& to) {
    const Layout& layout = layoutOf(format);
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        std::fill_n(to[plane], rowBytes(format, plane, width), std::byte{});
    }
    for (std::size_t c = 0; c < componentCount; ++c) {
        const Place place = layout.places[c];
        std::byte* const row = to[place.plane];
        const std::size_t count = countIn(layout, c, width);
        const bool isByte = layout.bits == 8 || c == alphaComponent;
        const bool isLuma = layout.kind == Kind::ycbcr && c == lumaOrRed;
        for (std::size_t i = 0; i < count + (isLuma ? count % 2 : 0); ++i) {
            const int sample = samples[c][std::min(i, count - 1)];
            const std::size_t at = place[i];
            if (layout.isV210) {
                std::byte* const word = row + at / 3 * 4;
                const unsigned shifted = unsigned(sample) << (at % 3 * 10);
                setWord(word, wordAt(word) | int(shifted & 0xFFFF));
                setWord(word + 2, wordAt(word + 2) | int(shifted >> 16));
            } else if (isByte) {
                row[at] = std::byte(sample);
            } else {
                setWord(row + at, sample << layout.shift);
            }
        }
    }
}

Colour rgbOf(const Colour& ycbcr, Matrix matrix, Range range, int bits) {
    const Weights weights = weightsOf(matrix);
    const Scale scale = scaleOf(range, bits);
    const double y = (ycbcr[0] - scale.black) / scale.luma;
    const double cb = (ycbcr[1] - scale.neutral) / scale.chroma;
    const double cr = (ycbcr[2] - scale.neutral) / scale.chroma;
    const double red = y + 2 * (1 - weights.red) * cr;
    const double blue = y + 2 * (1 - weights.blue) * cb;
    const double green = (y - weights.red * red - weights.blue * blue) / weights.green();
    return {255 * red, 255 * green, 255 * blue};
}

Colour ycbcrOf(const Colour& rgb, Matrix matrix, Range range, int bits) {
    const Weights weights = weightsOf(matrix);
    const Scale scale = scaleOf(range, bits);
    const double red = rgb[0] / 255, green = rgb[1] / 255, blue = rgb[2] / 255;
    const double y = weights.red * red + weights.green() * green + weights.blue * blue;
    const double cb = (blue - y) / (2 * (1 - weights.blue));
    const double cr = (red - y) / (2 * (1 - weights.red));
    return {scale.black + scale.luma * y, scale.neutral + scale.chroma * cb,
            scale.neutral + scale.chroma * cr};
}

Limits limitsOf(Format format) {
    const Layout& layout = layoutOf(format);
    return layout.isV210 ? Limits{4, 1019} : Limits{0, (1 << layout.bits) - 1};
}

void convert(const Row<int>& source, Format from, Format to, const Options& options,
             std::uint32_t width, Row<double>& result) {
    const Layout &fromLayout = layoutOf(from), &toLayout = layoutOf(to);
    const bool toYcbcr = toLayout.kind == Kind::ycbcr;
    const bool isCosited = options.chroma == Chroma::cosited;
    for (std::size_t c = 0; c < componentCount; ++c) {
        result[c].resize(countIn(toLayout, c, width));
    }

    // Every pixel's colour, with the chroma of its own place.
    std::vector<Colour> colours(toLayout.kind == Kind::alpha ? 0 : width);
    for (std::size_t x = 0; x < colours.size(); ++x) {
        const auto& [first, second, third, alpha] = source;
        if (fromLayout.kind == Kind::rgb) {
            colours[x] = {double(first[x]), double(second[x]), double(third[x])};
            continue;
        }
        const std::size_t pair = x / 2;
        const std::size_t next =
            isCosited && x % 2 != 0 && pair + 1 < second.size() ? pair + 1 : pair;
        colours[x] = rgbOf({double(first[x]), 0.5 * (second[pair] + second[next]),
                            0.5 * (third[pair] + third[next])},
                           options.srcMatrix, options.srcRange, fromLayout.bits);
    }

    const Limits limits = limitsOf(to);
    const auto bounded = [&](double value) {
        return std::clamp(value, double(limits.least), double(limits.greatest));
    };
    for (std::size_t x = 0; x < colours.size(); ++x) {
        if (!toYcbcr) {
            for (std::size_t c = 0; c < 3; ++c) {
                result[c][x] = bounded(colours[x][c]);
            }
            continue;
        }
        const auto codes = [&](const Colour& colour) {
            return ycbcrOf(colour, options.dstMatrix, options.dstRange, toLayout.bits);
        };
        const Colour own = codes(colours[x]);
        result[lumaOrRed][x] = bounded(own[0]);
        if (x % 2 != 0) {
            continue;
        }
        // Even pixels of YCbCr have their pair's chroma already.
        Colour ofPair = own;
        if (fromLayout.kind == Kind::rgb && isCosited) {
            const Colour &left = colours[x == 0 ? 0 : x - 1],
                         &right = colours[std::min<std::size_t>(x + 1, width - 1)];
            Colour mean;
            for (std::size_t c = 0; c < 3; ++c) {
                mean[c] = 0.25 * left[c] + 0.5 * colours[x][c] + 0.25 * right[c];
            }
            ofPair = codes(mean);
        }
        result[cbOrGreen][x / 2] = bounded(ofPair[1]);
        result[crOrBlue][x / 2] = bounded(ofPair[2]);
    }

    for (std::size_t x = 0; x < result[alphaComponent].size(); ++x) {
        result[alphaComponent][x] =
            source[alphaComponent].empty() ? options.alpha : source[alphaComponent][x];
    }
}

bool isCopy(Format from, Format to, const Options& options) {
    return orva::formatInfo(from).colour == orva::formatInfo(to).colour &&
           (layoutOf(from).kind != Kind::ycbcr ||
            (options.srcMatrix == options.dstMatrix && options.srcRange == options.dstRange));
}

}  // namespace reference
