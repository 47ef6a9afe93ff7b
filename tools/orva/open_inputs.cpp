// The files that are being read.
#include "open_inputs.hpp"

#include "file_handle.hpp"
#include "file_names.hpp"

#include <algorithm>
#include <mutex>
#include <optional>
#include <system_error>
#include <vector>

#if defined(_WIN32)
#include <io.h>
#include <windows.h>
#else
#include <sys/stat.h>
#endif

namespace orva::tool {
namespace {

std::mutex mutex;
std::vector<int> descriptors;  // of the inputs

#if defined(_WIN32)

using Status = BY_HANDLE_FILE_INFORMATION;

bool getStatus(int descriptor, Status& status) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
    return GetFileType(handle) == FILE_TYPE_DISK && GetFileInformationByHandle(handle, &status);
}

bool isSameFile(const Status& a, const Status& b) {
    return a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
           a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
}

#else

using Status = struct stat;

bool getStatus(int descriptor, Status& status) {
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool isSameFile(const Status& a, const Status& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

#endif

std::optional<Status> kept;  // from being an input

}  // namespace

void noteInput(std::FILE* file) {
    Status status;
    if (getStatus(fileno(file), status)) {
        const std::lock_guard lock(mutex);
        descriptors.push_back(fileno(file));
    }
}

void forgetInput(std::FILE* file) {
    const std::lock_guard lock(mutex);
    std::erase(descriptors, fileno(file));
}

bool isInput(int descriptor) {
    const std::lock_guard lock(mutex);
    Status output;
    return getStatus(descriptor, output) && std::ranges::any_of(descriptors, [&output](int input) {
               Status status;
               return getStatus(input, status) && isSameFile(status, output);
           });
}

void keepFromInputs(const std::string& name) {
    std::error_code ignored;
    Status status;
    if (std::filesystem::is_regular_file(pathOf(name), ignored)) {
        const FileHandle file(openForReading(name));
        if (file && getStatus(fileno(file.get()), status)) {
            kept = status;
        }
    }
}

bool isKeptFromInputs(std::FILE* file) {
    Status status;
    return kept && getStatus(fileno(file), status) && isSameFile(status, *kept);
}

}  // namespace orva::tool
