// How the name of an output becomes an open file on POSIX systems.
#include "output_target.hpp"

#include "failure.hpp"
#include "open_inputs.hpp"
#include "unfinished.hpp"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>
#include <random>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orva::tool {
namespace {

namespace fs = std::filesystem;

constexpr mode_t permissions = 0777;

[[noreturn]] void fail(const std::string& name) {
    throw Failure((name == "-" ? "standard output" : name) +
                  ": cannot be written: " + std::strerror(errno));
}

// The N of /dev/fd/N and other names of descriptors. Opening one would make a new description of a
// file, which begins at its first byte and may truncate it, and does not take sockets.
std::optional<int> descriptorNamed(const fs::path& path) {
    std::string_view name = path.native();
    if (name == "-" || name == "/dev/stdout") {
        return STDOUT_FILENO;
    }
    if (name == "/dev/stderr") {
        return STDERR_FILENO;
    }
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        if (name.starts_with(folder)) {
            name.remove_prefix(folder.size());
            int descriptor = 0;
            const char* const end = name.data() + name.size();
            const auto [rest, error] = std::from_chars(name.data(), end, descriptor);
            if (error == std::errc{} && rest == end) {
                return descriptor;
            }
        }
    }
    return std::nullopt;
}

// Where links lead, whether anything is there or not. Stops at descriptors, most of which are links
// to names that nobody can open.
fs::path followLinks(fs::path path) {
    constexpr int mostLinks = 40;
    std::error_code ignored;
    for (int i = 0; i < mostLinks && !descriptorNamed(path) && fs::is_symlink(path, ignored); ++i) {
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

FileHandle streamOf(int descriptor, const std::string& name) {
    std::FILE* const file = descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
    if (!file) {
        if (descriptor >= 0 && errno == EINVAL) {
            errno = EBADF;  // it is open for reading only, as write() would say
        }
        fail(name);
    }
    return FileHandle(file);
}

OutputTarget openDirectly(const std::string& name, const fs::path& path) {
    const auto descriptor = descriptorNamed(path);
    OutputTarget target{.file = streamOf(descriptor ? fcntl(*descriptor, F_DUPFD_CLOEXEC, 0)
                                                    : open(path.c_str(), O_WRONLY | O_CLOEXEC),
                                         name),
                        .path = {},
                        .temporary = {}};
    struct stat status;
    if (fstat(fileno(target.file.get()), &status) == 0 && S_ISREG(status.st_mode)) {
        if (isInput(fileno(target.file.get()))) {
            throw Failure(name + ": is also the input, and cannot be replaced");
        }
        if (!descriptor && ftruncate(fileno(target.file.get()), 0) != 0) {
            fail(name);
        }
    }
    return target;
}

// A new file beside `path`. Its name is short: with that of `path` in it, it might be too long.
OutputTarget openBeside(const std::string& name, const fs::path& path, mode_t mode) {
    std::random_device device;
    OutputTarget target{.file = {}, .path = path, .temporary = {}};
    int descriptor;
    do {
        target.temporary = path.parent_path() / (".orva-" + std::to_string(device()));
        setUnfinished(target.temporary);
        descriptor = open(target.temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EEXIST);
    if (descriptor < 0) {
        const int error = errno;
        setUnfinished({});
        errno = error;
    }
    target.file = streamOf(descriptor, name);
    return target;
}

// The descriptor's file becomes like the old one, or cannot.
bool takeOver(int descriptor, const struct stat& old) {
    struct stat status;
    return fstat(descriptor, &status) == 0 &&
           ((status.st_uid == old.st_uid && status.st_gid == old.st_gid) ||
            fchown(descriptor, old.st_uid, old.st_gid) == 0) &&
           fchmod(descriptor, old.st_mode & permissions) == 0;
}

bool mayReplace(const fs::path& path, const struct stat& old) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : ".";
    return old.st_nlink == 1 && access(folder.c_str(), W_OK | X_OK) == 0;
}

OutputTarget openInPlaceOf(const std::string& name, const fs::path& path, const struct stat& old) {
    if (access(path.c_str(), W_OK) != 0) {
        fail(name);
    }
    if (mayReplace(path, old)) {
        constexpr mode_t ownerOnly = 0600;  // until it has its owner
        OutputTarget target = openBeside(name, path, ownerOnly);
        if (takeOver(fileno(target.file.get()), old)) {
            return target;
        }
        unlink(target.temporary.c_str());
        setUnfinished({});
    }
    return openDirectly(name, path);
}

}  // namespace

OutputTarget openTarget(const std::string& name) {
    const fs::path path = followLinks(name);
    if (descriptorNamed(path)) {
        return openDirectly(name, path);
    }
    struct stat status;
    if (stat(name.c_str(), &status) != 0) {
        if (errno != ENOENT || !path.has_filename()) {
            fail(name);
        }
        constexpr mode_t asUmaskSays = 0666;
        return openBeside(name, path, asUmaskSays);
    }
    if (S_ISDIR(status.st_mode)) {
        throw Failure(name + ": is a directory");
    }
    return S_ISREG(status.st_mode) ? openInPlaceOf(name, path, status) : openDirectly(name, name);
}

}  // namespace orva::tool
