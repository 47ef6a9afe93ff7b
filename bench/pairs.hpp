// What is measured of the checked library: every pair of formats, and where its images lie.
#pragma once

#include "cases.hpp"
#include "measure.hpp"

#include <orva/convert.hpp>

#include <optional>

namespace bench {

struct Pair {
    orva::Format source, destination;
    bool matrix = false;  // from BT.709 to BT.601; else BT.709 on both sides

    std::string name() const;
    // The export that does the same, if there is one.
    std::optional<Case> exported() const;
};

// All of them, those between matrices behind the others, or those whose names contain the filter.
std::vector<Pair> pairs(std::string_view filter);

// The images of a pair in one frame's memory, as Layout has them: rows without gaps, a colour's
// planes behind one another. A crop's rows have those gaps that the frame leaves around it.
class ImageLayout {
public:
    // The size is that of whole frames.
    ImageLayout(const Pair& pair, Size whole, Form form);

    orva::ConstImageView source(uint8_t* memory) const { return from.at(memory); }
    orva::ImageView destination(uint8_t* memory) const { return to.at(memory); }
    const FrameMemory& frame() const { return placed; }
    Size size() const { return {from.size.width, from.size.height}; }

private:
    struct PlacedPlane {
        size_t begin = 0, bytes = 0;
        ptrdiff_t pitch = 0;
    };
    struct PlacedImage {
        orva::Format format;
        Size size;
        std::array<PlacedPlane, orva::planeCount> planes{};

        orva::ImageView at(uint8_t* memory) const;
    };
    PlacedImage place(const orva::FormatInfo& format, Size whole, Size size, Form form);

    FrameMemory placed;
    PlacedImage from, to;
};

}  // namespace bench
