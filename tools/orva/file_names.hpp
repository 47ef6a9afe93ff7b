// Names of files in the program's arguments and messages, and what the system takes for them. Names
// are UTF-8 on Windows, whatever its code page is, and bytes elsewhere.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace orva::tool {

// What main() has been given, but for the program's name.
std::vector<std::string> argumentsOf(int argc, char** argv);

std::filesystem::path pathOf(const std::string& name);

// Null, and errno why.
std::FILE* openForReading(const std::string& name);

}  // namespace orva::tool
