// Binary PPM (P6), PGM (P5) and PAM (P7) files with one byte per channel. RGB24I is the colour of
// PPM, A8P the grey of PGM, and PAM holds these and RGB32I.
#pragma once

#include "files.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

Image readPnm(InputFile& file);

// The image is in the format that the file holds.
void writePpm(MemoryFile& file, const ConstImageView& image);
void writePgm(MemoryFile& file, const ConstImageView& image);
void writePam(MemoryFile& file, const ConstImageView& image);

}  // namespace orva::tool
