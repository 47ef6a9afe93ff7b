// Binary files, standard input and standard output.
#include "files.hpp"

#include "failure.hpp"
#include "file_names.hpp"
#include "unfinished.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace orva::tool {
namespace {

namespace fs = std::filesystem;

// Longer pieces go past the buffer.
constexpr std::size_t bufferSize = std::size_t{1} << 16;

[[noreturn]] void fail(const std::string& name, const char* what) {
    throw Failure(name + ": " + what + ": " + std::strerror(errno));
}

}  // namespace

InputFile::InputFile(const std::string& name) : shownName(name) {
    if (name == "-") {
        shownName = "standard input";
#if defined(_WIN32)
        _setmode(_fileno(stdin), _O_BINARY);
#endif
        file.reset(stdin);
    } else {
        const fs::path path = pathOf(name);
        std::error_code ignored;
        if (fs::is_directory(path, ignored)) {
            throw Failure(name + ": is a directory");
        }
        file.reset(openForReading(name));
        if (!file) {
            fail(name, "cannot be read");
        }
        if (fs::is_regular_file(path, ignored)) {
            fileSize = fs::file_size(path);
        }
    }
    if (isKeptFromInputs(file.get())) {
        throw Failure(shownName + ": is also the output, which would replace it");
    }
    noteInput(file.get());
    std::setvbuf(file.get(), nullptr, _IOFBF, bufferSize);
}

std::size_t InputFile::readFile(std::span<std::byte> bytes) {
    const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), file.get());
    if (count < bytes.size() && std::ferror(file.get())) {
        fail(shownName, "cannot be read");
    }
    return count;
}

std::size_t InputFile::read(std::span<std::byte> bytes) {
    const std::span<const std::byte> before =
        std::span(ahead).subspan(aheadRead, std::min(bytes.size(), ahead.size() - aheadRead));
    std::ranges::copy(before, bytes.begin());
    aheadRead += before.size();
    const std::size_t count = before.size() + readFile(bytes.subspan(before.size()));
    bytesRead += count;
    return count;
}

std::span<const std::byte> InputFile::peek(std::size_t count) {
    ahead.erase(ahead.begin(), ahead.begin() + static_cast<std::ptrdiff_t>(aheadRead));
    aheadRead = 0;
    if (const std::size_t there = ahead.size(); there < count) {
        ahead.resize(count);
        ahead.resize(there + readFile(std::span(ahead).subspan(there)));
    }
    return std::span(ahead).first(std::min(count, ahead.size()));
}

bool InputFile::holds(std::uint64_t count) {
    if (fileSize) {
        return count <= *fileSize - bytesRead;
    }
    for (std::uint64_t part = bufferSize;; part *= 2) {
        const auto wanted = static_cast<std::size_t>(std::min(count, part));
        if (peek(wanted).size() < wanted) {
            return false;
        }
        if (wanted == count) {
            return true;
        }
    }
}

OutputFile::OutputFile(const std::string& name)
    : shownName(name == "-" ? "standard output" : name), target(openTarget(name)) {
    std::setvbuf(target.file.get(), nullptr, _IOFBF, bufferSize);
}

OutputFile::~OutputFile() {
    if (!target.temporary.empty()) {
        target.file.reset();
        std::error_code ignored;
        fs::remove(target.temporary, ignored);
        setUnfinished({});
    }
}

void OutputFile::write(std::span<const std::byte> bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), target.file.get()) != bytes.size()) {
        fail(shownName, "cannot be written");
    }
}

void OutputFile::commit() {
    if (std::fclose(target.file.release()) != 0) {
        fail(shownName, "cannot be written");
    }
    if (!target.temporary.empty()) {
        std::error_code error;
        fs::rename(target.temporary, target.path, error);
        if (error) {
            throw Failure(shownName + ": cannot be written: " + error.message());
        }
        setUnfinished({});
        target.temporary.clear();
    }
}

void reserveStandardStreams() {
#if !defined(_WIN32)
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) < 0) {
            // It gets this number, the least one that is free, and is open for the wrong direction.
            open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
#endif
}

bool closeStandardOutput() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 &&
           (std::fclose(stdout) == 0 || errno == EBADF);  // it may have been closed before
}

}  // namespace orva::tool
