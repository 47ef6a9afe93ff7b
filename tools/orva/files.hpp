// Binary files, standard input and standard output under one interface; output appears under its
// name only when it is complete.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orva::tool {

struct CloseFile {
    void operator()(std::FILE* file) const;
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

class InputFile {
public:
    // "-" is standard input.
    explicit InputFile(const std::string& name);

    // Fills as much of `bytes` as the file still holds and returns how much that was.
    std::size_t read(std::span<std::byte> bytes);

    // The next bytes, `count` of them or all that are left, which stay to be read.
    std::span<const std::byte> peek(std::size_t count);

    const std::string& name() const { return shownName; }

    // Of a regular file.
    std::optional<std::uint64_t> size() const { return fileSize; }

    // Whether so many bytes are left. Where the size is unknown they are kept to be read, with no
    // more memory than about twice what there is.
    bool holds(std::uint64_t count);

private:
    std::string shownName;
    FileHandle file;
    std::vector<std::byte> ahead;  // what has been peeked at
    std::size_t aheadRead = 0;     // bytes of that
    std::uint64_t bytesRead = 0;
    std::optional<std::uint64_t> fileSize;

    std::size_t readFile(std::span<std::byte> bytes);
};

// Written to a temporary name beside the target and renamed by commit(); without commit() nothing
// stays, nor after a signal (unfinished.hpp). Standard output ("-"), devices and pipes are written
// directly.
class OutputFile {
public:
    explicit OutputFile(const std::string& name);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::span<const std::byte> bytes);
    void commit();

    const std::string& name() const { return shownName; }

private:
    std::string shownName;
    std::filesystem::path target;
    std::string temporary;  // empty where the target is written directly
    FileHandle file;

    void forgetTemporary();  // keeps errno
};

}  // namespace orva::tool
