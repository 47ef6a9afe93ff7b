// The limits that Linux sets a group of processes.
#pragma once

#include <fstream>
#include <vector>

namespace orva::tool {

// The files of this name, such as "cpu.max", of this process's control group (version 2) and of
// each above it, whose limits bind it, too. Those that are not there cannot be read.
std::vector<std::ifstream> openControls(const char* name);

}  // namespace orva::tool
