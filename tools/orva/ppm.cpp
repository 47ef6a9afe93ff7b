// Binary PPM files.
#include "ppm.hpp"

#include "failure.hpp"

#include <array>
#include <cctype>
#include <utility>

namespace orva::tool {
namespace {

// Beyond this a header is more likely damaged than true.
constexpr std::uint32_t maximumNumber = 1 << 20;

class HeaderReader {
public:
    explicit HeaderReader(InputFile& file) : file(file) {}

    void expectMagic() {
        if (next() != 'P' || next() != '6') {
            throw Failure(file.name() + ": is not a binary PPM file (P6)");
        }
    }

    // The next decimal number and the one byte behind it.
    std::uint32_t number() {
        int c = next();
        while (std::isspace(c) || c == '#') {
            const bool comment = c == '#';
            while (comment && c != '\n') {
                c = next();
            }
            c = next();
        }
        std::uint32_t value = 0;
        if (!std::isdigit(c)) {
            damaged();
        }
        for (; std::isdigit(c); c = next()) {
            value = value * 10 + static_cast<std::uint32_t>(c - '0');
            if (value > maximumNumber) {
                damaged();
            }
        }
        return value;
    }

    [[noreturn]] void damaged() const { throw Failure(file.name() + ": has a damaged header"); }

private:
    int next() {
        std::byte byte;
        if (file.read({&byte, 1}) != 1) {
            damaged();
        }
        return static_cast<unsigned char>(byte);
    }

    InputFile& file;
};

// RGB is BGR with the outer bytes exchanged.
void swapRedAndBlue(std::vector<std::byte>& pixels) {
    for (std::size_t i = 0; i + 2 < pixels.size(); i += 3) {
        std::swap(pixels[i], pixels[i + 2]);
    }
}

}  // namespace

Picture readPpm(InputFile& file) {
    HeaderReader header(file);
    header.expectMagic();
    Picture picture;
    picture.width = header.number();
    picture.height = header.number();
    if (header.number() != 255) {
        throw Failure(file.name() + ": has not one byte per channel (maximum value 255)");
    }
    const std::uint64_t size = std::uint64_t{picture.width} * picture.height * 3;
    if (size == 0 || (file.size() && size > *file.size())) {
        throw Failure(file.name() + ": ends before its last pixel");
    }
    picture.bytes.resize(static_cast<std::size_t>(size));
    if (file.read(picture.bytes) != picture.bytes.size()) {
        throw Failure(file.name() + ": ends before its last pixel");
    }
    swapRedAndBlue(picture.bytes);
    return picture;
}

void writePpm(OutputFile& file, const Picture& picture) {
    const std::string header =
        "P6\n" + std::to_string(picture.width) + ' ' + std::to_string(picture.height) + "\n255\n";
    file.write(std::as_bytes(std::span(header)));
    std::vector<std::byte> row(std::size_t{picture.width} * 3);
    const std::byte* in = picture.bytes.data();
    for (std::uint32_t y = 0; y < picture.height; ++y) {
        for (std::size_t x = 0; x < row.size(); x += 3, in += picture.bytesPerPixel()) {
            row[x] = in[2];
            row[x + 1] = in[1];
            row[x + 2] = in[0];
        }
        file.write(row);
    }
}

}  // namespace orva::tool
