// The files that are being read, and which of them an output would overwrite.
#pragma once

#include <cstdio>
#include <string>

namespace orva::tool {

// Any thread may call these. A file is noted until it is forgotten, which comes before it is
// closed; what is not on disk need not be kept.
void noteInput(std::FILE* file);
void forgetInput(std::FILE* file);

// Whether the descriptor leads to one of them, by whatever name.
bool isInput(int descriptor);

// The regular file of this name, if there is one, is to be replaced in the end, and so no input. To
// be called before inputs are opened.
void keepFromInputs(const std::string& name);
bool isKeptFromInputs(std::FILE* file);

}  // namespace orva::tool
