// PNG files, where libpng was there at build time; else both functions say that it was not.
#pragma once

#include "files.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

// RGB32I, RGB24I where the file has no alpha, or A8P where it has neither alpha nor colour. A file
// without a statement about its colours is taken as sRGB, as it is in 8 bits.
Image readPng(InputFile& file);

// An image of one of these formats.
void writePng(MemoryFile& file, const ConstImageView& image);

}  // namespace orva::tool
