// Binary files, standard input and standard output under one interface; output appears under its
// name only when it is complete.
#pragma once

#include "open_inputs.hpp"
#include "output_target.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace orva::tool {

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
    struct ForgetAndClose {
        void operator()(std::FILE* file) const {
            forgetInput(file);
            CloseFile{}(file);
        }
    };

    std::string shownName;
    std::unique_ptr<std::FILE, ForgetAndClose> file;
    std::vector<std::byte> ahead;  // what has been peeked at
    std::size_t aheadRead = 0;     // bytes of that
    std::uint64_t bytesRead = 0;
    std::optional<std::uint64_t> fileSize;

    std::size_t readFile(std::span<std::byte> bytes);
};

// A regular file appears under its name, or anew, by commit(); without it nothing stays, nor
// after a signal (unfinished.hpp). Standard output ("-"), devices, pipes and what else cannot
// be replaced (output_target.hpp) are written directly.
class OutputFile {
public:
    explicit OutputFile(const std::string& name);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::span<const std::byte> bytes);

    // The last call.
    void commit();

private:
    std::string shownName;
    OutputTarget target;
};

// A file made in memory, in bytes of the caller.
class MemoryFile {
public:
    MemoryFile(std::string name, std::vector<std::byte>& bytes)
        : shownName(std::move(name)), bytes(bytes) {
        bytes.clear();
    }

    void write(std::span<const std::byte> more) {
        bytes.insert(bytes.end(), more.begin(), more.end());
    }

    const std::string& name() const { return shownName; }

private:
    std::string shownName;
    std::vector<std::byte>& bytes;
};

// Makes sure that no file is opened as a standard stream that was closed when the program was
// started: reading or writing that fails. Called before any file is opened.
void reserveStandardStreams();

// Whether all arrived that was printed; else errno says why not. Nothing may be printed
// afterwards.
bool closeStandardOutput();

}  // namespace orva::tool
