// Binary PPM files.
#include "ppm.hpp"

#include "failure.hpp"
#include "images.hpp"

#include <cctype>

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

}  // namespace

Image readPpm(InputFile& file) {
    HeaderReader header(file);
    header.expectMagic();
    FrameSize size;
    size.width = header.number();
    size.height = header.number();
    if (header.number() != 255) {
        throw Failure(file.name() + ": has not one byte per channel (maximum value 255)");
    }
    const std::uint64_t bytes = std::uint64_t{size.width} * size.height * 3;
    if (bytes == 0 || (file.size() && bytes > *file.size())) {
        throw Failure(file.name() + ": ends before its last pixel");
    }
    Image image = createImage(Format::RGB24I, size);
    forEachRow(image.view(), [&file](std::span<std::byte> row) {
        if (file.read(row) != row.size()) {
            throw Failure(file.name() + ": ends before its last pixel");
        }
    });
    return image;
}

void writePpm(OutputFile& file, const ConstImageView& image) {
    const std::string header =
        "P6\n" + std::to_string(image.width) + ' ' + std::to_string(image.height) + "\n255\n";
    file.write(std::as_bytes(std::span(header)));
    forEachRow(image, [&file](std::span<const std::byte> row) { file.write(row); });
}

}  // namespace orva::tool
