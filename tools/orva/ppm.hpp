// Binary PPM files (P6) with one byte per channel.
#pragma once

#include "files.hpp"
#include "picture.hpp"

namespace orva::tool {

Picture readPpm(InputFile& file);

// Leaves alpha out.
void writePpm(OutputFile& file, const Picture& picture);

}  // namespace orva::tool
