// How the name of an output becomes an open file on Windows.
#include "output_target.hpp"

#include "failure.hpp"
#include "file_names.hpp"
#include "open_inputs.hpp"
#include "unfinished.hpp"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace orva::tool {
namespace {

namespace fs = std::filesystem;

// Null, and GetLastError() why. The C library's own functions do not let anybody delete a file that
// is open.
FileHandle openDeletable(const fs::path& path, DWORD disposition) {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return nullptr;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_BINARY);
    return FileHandle(_fdopen(descriptor, "wb"));
}

bool isOnDisk(std::FILE* file) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    return GetFileType(handle) == FILE_TYPE_DISK;
}

[[noreturn]] void fail(const std::string& name) {
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    throw Failure(name + ": cannot be written: " + error.message());
}

}  // namespace

OutputTarget openTarget(const std::string& name) {
    if (name == "-") {
        const int descriptor = _dup(_fileno(stdout));
        if (descriptor < 0) {
            throw Failure(std::string("standard output: cannot be written: ") +
                          std::strerror(errno));
        }
        _setmode(descriptor, _O_BINARY);
        return {.file = FileHandle(_fdopen(descriptor, "wb")), .path = {}, .temporary = {}};
    }
    const fs::path given = pathOf(name);
    if (fs::is_directory(given)) {
        throw Failure(name + ": is a directory");
    }
    FileHandle old = openDeletable(given, OPEN_EXISTING);
    if (!old && GetLastError() != ERROR_FILE_NOT_FOUND && GetLastError() != ERROR_PATH_NOT_FOUND) {
        fail(name);
    }
    if (old && !isOnDisk(old.get())) {
        return {.file = std::move(old), .path = {}, .temporary = {}};
    }
    if (old && isInput(_fileno(old.get()))) {
        throw Failure(name + ": is also the input, and cannot be replaced while it is read");
    }
    const fs::path path = old ? fs::canonical(given) : given;
    std::random_device device;
    const fs::path temporary = path.parent_path() / (".orva-" + std::to_string(device()));
    FileHandle file = openDeletable(temporary, CREATE_NEW);
    if (!file) {
        fail(name);
    }
    setUnfinished(temporary);
    return {.file = std::move(file), .path = path, .temporary = temporary};
}

}  // namespace orva::tool
