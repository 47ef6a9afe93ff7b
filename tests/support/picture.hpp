// What tests of the checked library share: images anywhere in memory, their contents, and the
// judgement of a converted image.
#pragma once

#include "support/data.hpp"

#include <orva/convert.hpp>

#include <array>
#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace test {

// Memory from a multiple of 64 on. The address sanitizer sees accesses beyond its end.
template <class T> struct FromLineStart {
    using value_type = T;
    static constexpr std::align_val_t alignment{64};
    T* allocate(std::size_t count) {
        return static_cast<T*>(::operator new(count * sizeof(T), alignment));
    }
    void deallocate(T* memory, std::size_t) { ::operator delete(memory, alignment); }
    bool operator==(const FromLineStart&) const = default;
};
using Memory = std::vector<std::byte, FromLineStart<std::byte>>;

constexpr orva::PlaneIndex planeIndices[] = {orva::mainPlane, orva::chromaPlane, orva::crPlane,
                                             orva::alphaPlane};

// Where a plane lies: its lowest address modulo 64, bytes between rows, direction, and memory
// behind it that nobody may touch.
struct Placement {
    std::uint32_t offset = 0, gap = 0;
    bool bottomUp = false;
    std::uint32_t behind = 0;
};
using Placements = std::array<Placement, orva::planeCount>;
Placements randomPlacements(Random& random);

// An image that owns its memory, each plane on its own and placed at will. Copies lie alike.
class Canvas {
public:
    Canvas(orva::Format format, std::uint32_t width, std::uint32_t height,
           const Placements& placements);

    orva::ImageView view();

    std::array<Memory, orva::planeCount> memory;

private:
    orva::ImageView shape;  // without memory
    Placements placements;
};

// The first bytes of a row in every plane that the image has.
template <class Byte>
std::array<Byte*, orva::planeCount> rowOf(const orva::BasicImageView<Byte>& image,
                                          std::uint32_t y) {
    std::array<Byte*, orva::planeCount> row = {};
    for (const orva::PlaneIndex p : planeIndices) {
        const auto& [bytes, pitch] = planeOf(image, p);
        if (!bytes.empty()) {
            const auto signedDistance = static_cast<std::size_t>(pitch);
            const std::size_t distance = pitch < 0 ? 0 - signedDistance : signedDistance;
            row[p] = bytes.data() + distance * (pitch < 0 ? image.height - 1 - y : y);
        }
    }
    return row;
}

// The planes that both formats divide into the same units, which their images may share.
std::vector<orva::PlaneIndex> commonPlanes(orva::Format a, orva::Format b);

// Noise, extremes and runs in all of a canvas' memory.
void fill(std::span<std::byte> bytes, Random& random);
void fill(Canvas& canvas, Random& random);

// Samples of middling size in every row, whose colours rarely saturate: ramps, steps, soft noise.
void fillSoftly(const orva::ImageView& image, Random& random);

// Copies the rows [first, first + count) between images of the same format and size, in the planes
// that both views have.
void copyRows(const orva::ConstImageView& from, const orva::ImageView& to, std::uint32_t first,
              std::uint32_t count);

// What is wrong with these rows of a destination, by the model; empty if nothing is.
struct Judgement {
    std::string fault;
    double largestError = 0;  // of a sample from its real value, in codes
};
Judgement judge(const orva::ConstImageView& source, const orva::ConstImageView& destination,
                const orva::Options& options, std::uint32_t first, std::uint32_t count);

constexpr double promisedError = 0.6;

std::string nameOf(orva::Format source, orva::Format destination);
std::string describe(const orva::Options& options);
std::string describe(const Placements& placements);

}  // namespace test
