// Binary PPM files (P6) with one byte per channel, as RGB24I.
#pragma once

#include "files.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

Image readPpm(InputFile& file);
void writePpm(OutputFile& file, const ConstImageView& image);

}  // namespace orva::tool
