// PNG files, where libpng was there at build time; else both functions say that it was not.
#pragma once

#include "files.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

// RGB32I, or RGB24I where the file has no alpha.
Image readPng(InputFile& file);
void writePng(OutputFile& file, const ConstImageView& image);

}  // namespace orva::tool
