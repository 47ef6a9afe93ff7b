// PNG files, where libpng was there at build time; else both functions say that it was not.
#pragma once

#include "files.hpp"
#include "picture.hpp"

namespace orva::tool {

Picture readPng(InputFile& file);
void writePng(OutputFile& file, const Picture& picture);

}  // namespace orva::tool
