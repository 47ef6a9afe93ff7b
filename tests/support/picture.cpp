// Images in poisoned memory, random contents and options, and the comparison of every sample with
// the model's.
#include "support/picture.hpp"

#include "reference/picture.hpp"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace test {

using namespace orva;

Placements randomPlacements(Random& random) {
    constexpr std::uint32_t gaps[] = {0, 0, 16, 64, 1, 7, 30, 100};
    Placements placements;
    // Without gaps, rows may be taken for one long row.
    const bool isContiguous = pick(random, 3) == 0;
    for (Placement& placement : placements) {
        placement = {.offset = pick(random, 3) == 0 ? 0 : pick(random, 64),
                     .gap = isContiguous ? 0 : gaps[pick(random, 8)],
                     .bottomUp = !isContiguous && pick(random, 3) == 0,
                     .behind = pick(random, 2) * 80};
    }
    return placements;
}

Canvas::Canvas(Format format, std::uint32_t width, std::uint32_t height,
               const Placements& placements)
    : shape{format, width, height, {}, {}, {}, {}}, placements(placements) {
    for (const PlaneIndex p : planeIndices) {
        const std::size_t bytes = rowBytes(format, p, width);
        if (bytes > 0) {
            const Placement& place = placements[p];
            memory[p].resize(place.offset + (bytes + place.gap) * (height - 1) + bytes +
                             place.behind);
        }
    }
}

ImageView Canvas::view() {
    ImageView image = shape;
    for (const PlaneIndex p : planeIndices) {
        if (!memory[p].empty()) {
            const Placement& place = placements[p];
            const auto pitch =
                static_cast<std::ptrdiff_t>(rowBytes(shape.format, p, shape.width) + place.gap);
            planeOf(image, p) = {
                std::span(memory[p]).first(memory[p].size() - place.behind).subspan(place.offset),
                place.bottomUp ? -pitch : pitch};
        }
    }
    return image;
}

std::vector<PlaneIndex> commonPlanes(Format a, Format b) {
    std::vector<PlaneIndex> common;
    for (const PlaneIndex p : planeIndices) {
        const PlaneInfo first = formatInfo(a).planes[p], second = formatInfo(b).planes[p];
        if (first.unitBytes > 0 && first.unitBytes == second.unitBytes &&
            first.unitPixels == second.unitPixels) {
            common.push_back(p);
        }
    }
    return common;
}

void fill(std::span<std::byte> bytes, Random& random) {
    std::ranges::copy(std::as_bytes(runs(bytes.size(), random)), bytes.begin());
}

void fill(Canvas& canvas, Random& random) {
    for (Memory& plane : canvas.memory) {
        fill(plane, random);
    }
}

void fillSoftly(const ImageView& image, Random& random) {
    const std::uint32_t codes =
        static_cast<std::uint32_t>(reference::limitsOf(image.format).greatest) + 1;
    reference::Row<int> samples;
    for (std::uint32_t y = 0; y < image.height; ++y) {
        for (std::size_t c = 0; c < samples.size(); ++c) {
            const std::uint32_t count = c == reference::alphaComponent ? 256 : codes;
            const std::uint32_t kind = pick(random, 3), slope = pick(random, 12);
            std::uint32_t value = pick(random, count);
            samples[c].resize(reference::sampleCount(image.format, c, image.width));
            for (int& sample : samples[c]) {
                value = kind == 0              ? count / 3 + pick(random, count / 3)
                        : kind == 1            ? (value + slope) % count
                        : pick(random, 8) == 0 ? pick(random, count)
                                               : value;
                sample = static_cast<int>(value);
            }
        }
        reference::write(image.format, image.width, samples, rowOf(image, y));
    }
}

void copyRows(const ConstImageView& from, const ImageView& to, std::uint32_t first,
              std::uint32_t count) {
    for (std::uint32_t y = first; y < first + count; ++y) {
        const auto source = rowOf(from, y);
        const auto destination = rowOf(to, y);
        for (const PlaneIndex p : planeIndices) {
            if (source[p] && destination[p]) {
                std::memcpy(destination[p], source[p], rowBytes(to.format, p, to.width));
            }
        }
    }
}

Judgement judge(const ConstImageView& source, const ConstImageView& destination,
                const Options& options, std::uint32_t first, std::uint32_t count) {
    const Format from = source.format, to = destination.format;
    const bool isCopy = reference::isCopy(from, to, options);
    reference::Row<int> given, made;
    reference::Row<double> real;
    Canvas canonical(to, source.width, 1, {});
    Judgement judgement;
    std::ostringstream fault;
    for (std::uint32_t y = first; y < first + count && fault.view().empty(); ++y) {
        reference::read(from, source.width, rowOf(source, y), given);
        reference::read(to, source.width, rowOf(destination, y), made);
        reference::convert(given, from, to, options, source.width, real);
        for (std::size_t c = isCopy ? std::size_t{reference::alphaComponent} : 0; c < real.size();
             ++c) {
            for (std::size_t i = 0; i < real[c].size(); ++i) {
                const double error = std::abs(made[c][i] - real[c][i]);
                judgement.largestError = std::max(judgement.largestError, error);
                if (error > promisedError && fault.view().empty()) {
                    fault << "row " << y << ": sample " << i << " of component " << c << " is "
                          << made[c][i] << ", should be " << real[c][i] << "; ";
                }
            }
        }
        // What the row would be byte for byte with the samples that it has, or what is copied.
        reference::write(to, source.width, made, rowOf(canonical.view(), 0));
        auto expected = rowOf(ConstImageView(canonical.view()), 0);
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane}) {
            expected[p] = isCopy ? rowOf(source, y)[p] : expected[p];
        }
        for (const PlaneIndex p : planeIndices) {
            const std::byte* const row = rowOf(destination, y)[p];
            const std::size_t bytes = rowBytes(to, p, source.width);
            const std::size_t same = std::mismatch(row, row + bytes, expected[p]).first - row;
            if (same < bytes) {
                fault << "row " << y << ": byte " << same << " of plane " << int(p) << " is "
                      << int(row[same]) << ", should be " << int(expected[p][same]) << "; ";
            }
        }
    }
    judgement.fault = fault.str();
    return judgement;
}

std::string nameOf(Format source, Format destination) {
    return std::string(formatInfo(source).name) + "_" + std::string(formatInfo(destination).name);
}

std::string describe(const Options& options) {
    std::ostringstream text;
    text << "matrices " << int(options.srcMatrix) << " " << int(options.dstMatrix) << ", ranges "
         << int(options.srcRange) << " " << int(options.dstRange) << ", chroma "
         << int(options.chroma) << ", alpha " << options.alpha << ", streaming "
         << int(options.streaming);
    return text.str();
}

std::string describe(const Placements& placements) {
    std::ostringstream text;
    for (const Placement& place : placements) {
        text << place.offset << "+" << place.gap << (place.bottomUp ? " upwards; " : "; ");
    }
    return text.str();
}

}  // namespace test
