// The output file that is not finished yet: what ends the program from outside removes it.
#pragma once

#include <filesystem>

namespace orva::tool {

// The path of the file, or an empty one when there is none. One file at a time. It is removed by
// every signal that ends a program and was not ignored when the first file was named, and on
// Windows by what ends a console's programs, if the file was opened so that others may delete it.
void setUnfinished(const std::filesystem::path& path);

}  // namespace orva::tool
