// How the name of an output becomes an open file.
#pragma once

#include "file_handle.hpp"

#include <filesystem>
#include <string>

namespace orva::tool {

struct OutputTarget {
    FileHandle file;
    std::filesystem::path path;
    // What `file` is until it is renamed to `path`; empty: it is the target.
    std::filesystem::path temporary;
};

// "-" is standard output. A regular file gets a temporary name beside it, which setUnfinished
// (unfinished.hpp) knows, and keeps its owner, group and mode; links lead to their targets. What
// renaming would break is written directly: devices, pipes, descriptors such as /dev/stdout, files
// with several names, and those whose folder or owner does not let them be replaced. Fails with a
// Failure.
OutputTarget openTarget(const std::string& name);

}  // namespace orva::tool
