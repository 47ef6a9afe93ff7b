// The files that are being read, which no output may overwrite.
#pragma once

#include <cstdio>

namespace orva::tool {

// Any thread may call these. A file is noted until it is forgotten, which comes before it is
// closed; what is not on disk need not be kept.
void noteInput(std::FILE* file);
void forgetInput(std::FILE* file);

// Whether the descriptor leads to one of them, by whatever name.
bool isInput(int descriptor);

}  // namespace orva::tool
