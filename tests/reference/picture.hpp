// The model of the checked library: where each format keeps its samples, and the real value of
// every sample that a conversion makes. It has the formats and the arithmetic of its own, in
// doubles, and shares no code with the library; only the shapes of planes are what the interface
// says.
#pragma once

#include <orva/convert.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace reference {

// A row's samples: Y Cb Cr or R G B, and alpha last. Chroma has one sample for two pixels; what a
// format does not have is empty.
enum Component : std::size_t { lumaOrRed, cbOrGreen, crOrBlue, alphaComponent, componentCount };
template <class Sample> using Row = std::array<std::vector<Sample>, componentCount>;

// Where a row begins in each plane.
template <class Byte> using RowStarts = std::array<Byte*, orva::planeCount>;

// How many samples of a component make up a row of this width; 0 if the format has none.
std::size_t sampleCount(orva::Format format, std::size_t component, std::uint32_t width);

void read(orva::Format format, std::uint32_t width, const RowStarts<const std::byte>& from,
          Row<int>& samples);

// Writes the whole row: also the pixel beyond an odd width, and zeros wherever no sample is.
void write(orva::Format format, std::uint32_t width, const Row<int>& samples,
           const RowStarts<std::byte>& to);

// Codes of one colour, neither rounded nor bounded.
using Colour = std::array<double, 3>;
Colour rgbOf(const Colour& ycbcr, orva::Matrix matrix, orva::Range range, int bits);
Colour ycbcrOf(const Colour& rgb, orva::Matrix matrix, orva::Range range, int bits);

// The least and the greatest code that a destination's samples may have.
struct Limits {
    int least, greatest;
};
Limits limitsOf(orva::Format format);

// The real value of every sample of the destination's row, bounded as it is stored.
void convert(const Row<int>& source, orva::Format from, orva::Format to,
             const orva::Options& options, std::uint32_t width, Row<double>& result);

// Whether rows are copied as they are, every byte of all planes but alpha's.
bool isCopy(orva::Format from, orva::Format to, const orva::Options& options);

}  // namespace reference
