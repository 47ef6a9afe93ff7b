// Owns an open file.
#pragma once

#include <cstdio>
#include <memory>

namespace orva::tool {

// Leaves standard input open, which is not ours.
struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace orva::tool
