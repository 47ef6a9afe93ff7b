// Binary files, standard input and standard output.
#include "files.hpp"

#include "failure.hpp"
#include "unfinished.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace orva::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t bufferSize = std::size_t{1} << 20;

[[noreturn]] void fail(const std::string& name, const char* what) {
    throw Failure(name + ": " + what + ": " + std::strerror(errno));
}

void setBinary([[maybe_unused]] std::FILE* stream) {
#if defined(_WIN32)
    _setmode(_fileno(stream), _O_BINARY);
#endif
}

// A name beside the target that no file has yet.
fs::path temporaryName(const fs::path& target) {
    std::random_device device;
    fs::path name;
    do {
        name = target;
        name += ".part" + std::to_string(device());
    } while (fs::exists(name));
    return name;
}

}  // namespace

void CloseFile::operator()(std::FILE* file) const {
    if (file != stdin && file != stdout) {
        std::fclose(file);
    }
}

InputFile::InputFile(const std::string& name) : shownName(name) {
    if (name == "-") {
        shownName = "standard input";
        setBinary(stdin);
        file.reset(stdin);
    } else {
        if (fs::is_directory(name)) {
            throw Failure(name + ": is a directory");
        }
        file.reset(std::fopen(name.c_str(), "rb"));
        if (!file) {
            fail(name, "cannot be read");
        }
        if (fs::is_regular_file(name)) {
            fileSize = fs::file_size(name);
        }
    }
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

OutputFile::OutputFile(const std::string& name) : shownName(name) {
    if (name == "-") {
        shownName = "standard output";
        setBinary(stdout);
        file.reset(stdout);
    } else {
        target = fs::exists(name) ? fs::canonical(name) : fs::path(name);
        if (fs::is_directory(target)) {
            throw Failure(name + ": is a directory");
        }
        const bool direct = fs::exists(target) && !fs::is_regular_file(target);
        if (direct) {
            file.reset(std::fopen(target.string().c_str(), "wb"));
        } else {
            temporary = temporaryName(target).string();
            setUnfinished(temporary.c_str());
            file.reset(std::fopen(temporary.c_str(), "wb"));
        }
        if (!file) {
            forgetTemporary();
            fail(name, "cannot be written");
        }
    }
    std::setvbuf(file.get(), nullptr, _IOFBF, bufferSize);
}

OutputFile::~OutputFile() {
    if (!temporary.empty()) {
        file.reset();
        std::error_code ignored;
        fs::remove(temporary, ignored);
        forgetTemporary();
    }
}

void OutputFile::forgetTemporary() {
    setUnfinished(nullptr);
    temporary.clear();
}

void OutputFile::write(std::span<const std::byte> bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        fail(shownName, "cannot be written");
    }
}

void OutputFile::commit() {
    if (std::fflush(file.get()) != 0) {
        fail(shownName, "cannot be written");
    }
    if (!temporary.empty()) {
        file.reset();
        fs::rename(temporary, target);
        forgetTemporary();
    }
}

}  // namespace orva::tool
