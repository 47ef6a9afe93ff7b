// The limits that Linux sets a group of processes.
#pragma once

#include <fstream>

namespace orva::tool {

// A file of this process's control group (version 2), such as "cpu.max". It cannot be read where
// there is none.
std::ifstream openControl(const char* name);

}  // namespace orva::tool
