// Fuzz target of the files that the program reads: the input is a file, which is PNG, PPM, PGM, PAM
// or Y4M by its first bytes. It is refused with a reason, or all of every frame comes from it: what
// was in the image before shows nowhere.
#include "failure.hpp"
#include "frames.hpp"

#include <sys/mman.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

using namespace orva;
using namespace orva::tool;

namespace {

using Bytes = std::vector<std::byte>;

// Damage to a PNG chunk shall be judged by what the chunk says, not by its checksum.
void correctChecksums(Bytes& file) {
    constexpr std::size_t signature = 8, around = 12;  // length, type and checksum
    const auto wordAt = [&file](std::size_t place) {
        std::uint32_t word = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            word = word << 8 | static_cast<std::uint32_t>(file[place + i]);
        }
        return word;
    };
    for (std::size_t chunk = signature; file.size() >= chunk + around;) {
        const std::size_t length = wordAt(chunk);
        if (length > file.size() - chunk - around) {
            return;
        }
        const auto* const type = reinterpret_cast<const Bytef*>(file.data() + chunk + 4);
        const uLong sum = crc32(0, type, static_cast<uInt>(length + 4));
        for (std::size_t i = 0; i < 4; ++i) {
            file[chunk + 8 + length + i] = static_cast<std::byte>(sum >> (24 - 8 * i));
        }
        chunk += length + around;
    }
}

// Bytes that have the name of a file for as long as this lives.
class NamedBytes {
public:
    explicit NamedBytes(const Bytes& bytes) : descriptor(memfd_create("fuzz", 0)) {
        if (write(descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            std::perror("memfd");
            std::abort();
        }
    }
    ~NamedBytes() { close(descriptor); }
    NamedBytes(const NamedBytes&) = delete;
    NamedBytes& operator=(const NamedBytes&) = delete;

    std::string name() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

// The samples of all frames, read into images that are full of `filling`; empty if refused.
Bytes readAll(const std::string& name, std::byte filling) {
    Bytes all;
    try {
        const auto reader = openFrames(name, {});
        Image image = createImage(reader->format(), reader->size());
        const auto fill = [&] {
            forEachRow(image.view(), [=](auto row) { std::ranges::fill(row, filling); });
        };
        for (fill(); reader->next(image.view()); fill()) {
            forEachRow(std::as_const(image).view(),
                       [&all](auto row) { all.insert(all.end(), row.begin(), row.end()); });
        }
    } catch (const Failure& failure) {
        if (std::string(failure.what()).size() < name.size()) {
            std::abort();
        }
        return {};
    }
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* const bytes = reinterpret_cast<const std::byte*>(data);
    Bytes input(bytes, bytes + size);
    correctChecksums(input);
    const NamedBytes file(input);
    if (readAll(file.name(), std::byte{0}) != readAll(file.name(), std::byte{255})) {
        std::fputs("a frame is not all read\n", stderr);
        std::abort();
    }
    return 0;
}
