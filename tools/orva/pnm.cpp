// Binary PPM, PGM and PAM files.
#include "pnm.hpp"

#include "failure.hpp"
#include "header.hpp"
#include "images.hpp"

#include <algorithm>
#include <array>

namespace orva::tool {
namespace {

// What PAM calls the formats.
struct TupleType {
    std::string_view name;
    std::uint32_t depth;
    Format format;
};
constexpr std::array tupleTypes = {TupleType{"RGB", 3, Format::RGB24I},
                                   TupleType{"RGB_ALPHA", 4, Format::RGB32I},
                                   TupleType{"GRAYSCALE", 1, Format::A8P}};

struct Header {
    Format format = Format::RGB24I;
    FrameSize size;
    std::uint32_t greatest = 0;  // value of a sample
};

char nextCharacter(InputFile& file) {
    std::byte byte;
    if (file.read({&byte, 1}) != 1) {
        failHeader(file);
    }
    return static_cast<char>(byte);
}

// A number of PPM and PGM, which the given whitespace begins, and the one character behind it.
std::uint32_t nextNumber(InputFile& file, char& space) {
    char c = space;
    if (!isSpace(c)) {
        failHeader(file);
    }
    while (isSpace(c) || c == '#') {
        const bool comment = c == '#';
        while (comment && c != '\n') {
            c = nextCharacter(file);
        }
        c = nextCharacter(file);
    }
    std::string digits;
    for (; c >= '0' && c <= '9' && digits.size() < 20; c = nextCharacter(file)) {
        digits += c;
    }
    const auto value = wholeNumber(digits);
    if (!value || !isSpace(c)) {
        failHeader(file);
    }
    space = c;
    return *value;
}

Header readPnmHeader(InputFile& file, Format format) {
    Header header;
    header.format = format;
    char space = nextCharacter(file);
    for (std::uint32_t* number : {&header.size.width, &header.size.height, &header.greatest}) {
        *number = nextNumber(file, space);
    }
    return header;
}

// Lines of a word and its value, up to the line ENDHDR.
Header readPamHeader(InputFile& file) {
    Header header;
    std::uint32_t depth = 0;
    std::string type;
    if (readLine(file) != "\n") {
        failHeader(file);
    }
    for (;;) {
        std::string line = readLine(file);
        if (!line.ends_with('\n')) {
            failHeader(file);
        }
        line.pop_back();
        if (line == "ENDHDR") {
            break;
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const std::size_t space = std::min(line.find(' '), line.size());
        const std::string word = line.substr(0, space);
        const std::string value =
            line.substr(std::min(line.find_first_not_of(' ', space), line.size()));
        if (word == "TUPLTYPE") {
            type = value;
            continue;
        }
        std::uint32_t* const number = word == "WIDTH"    ? &header.size.width
                                      : word == "HEIGHT" ? &header.size.height
                                      : word == "DEPTH"  ? &depth
                                      : word == "MAXVAL" ? &header.greatest
                                                         : nullptr;
        const auto given = wholeNumber(value);
        if (!number || !given) {
            failHeader(file);
        }
        *number = *given;
    }
    const auto found = std::ranges::find(tupleTypes, type, &TupleType::name);
    if (found == tupleTypes.end() || found->depth != depth) {
        throw Failure(file.name() + ": holds tuples of type '" + printable(type) + "' and depth " +
                      std::to_string(depth) +
                      "; RGB of 3, RGB_ALPHA of 4 and GRAYSCALE of 1 can be read");
    }
    header.format = found->format;
    return header;
}

Header readHeader(InputFile& file) {
    std::array<std::byte, 2> bytes{};
    file.read(bytes);
    const std::string_view magic(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (magic == "P5" || magic == "P6") {
        return readPnmHeader(file, magic == "P6" ? Format::RGB24I : Format::A8P);
    }
    if (magic == "P7") {
        return readPamHeader(file);
    }
    throw Failure(file.name() + ": is not a binary PPM, PGM or PAM file (P6, P5, P7)");
}

void write(MemoryFile& file, const std::string& header, const ConstImageView& image) {
    file.write(std::as_bytes(std::span(header)));
    forEachRow(image, [&file](std::span<const std::byte> row) { file.write(row); });
}

void writePnm(MemoryFile& file, const std::string& magic, const ConstImageView& image) {
    write(file,
          magic + "\n" + std::to_string(image.width) + ' ' + std::to_string(image.height) +
              "\n255\n",
          image);
}

}  // namespace

Image readPnm(InputFile& file) {
    const Header header = readHeader(file);
    if (header.size.width == 0 || header.size.height == 0) {
        failHeader(file);
    }
    if (header.greatest != 255) {
        throw Failure(file.name() + ": its greatest value is " + std::to_string(header.greatest) +
                      "; only files of one byte per channel (255) can be read");
    }
    const auto failShort = [&file] { throw Failure(file.name() + ": ends before its last pixel"); };
    requireMemory(header.format, header.size);
    if (!file.holds(frameBytes(header.format, header.size.width, header.size.height))) {
        failShort();
    }
    Image image = createImage(header.format, header.size);
    forEachRow(image.view(), [&](std::span<std::byte> row) {
        if (file.read(row) != row.size()) {
            failShort();
        }
    });
    if (!file.peek(1).empty()) {
        throw Failure(file.name() + ": goes on behind its last pixel");
    }
    return image;
}

void writePpm(MemoryFile& file, const ConstImageView& image) { writePnm(file, "P6", image); }

void writePgm(MemoryFile& file, const ConstImageView& image) { writePnm(file, "P5", image); }

void writePam(MemoryFile& file, const ConstImageView& image) {
    const auto& [type, depth, format] =
        *std::ranges::find(tupleTypes, image.format, &TupleType::format);
    write(file,
          "P7\nWIDTH " + std::to_string(image.width) + "\nHEIGHT " + std::to_string(image.height) +
              "\nDEPTH " + std::to_string(depth) + "\nMAXVAL 255\nTUPLTYPE " + std::string(type) +
              "\nENDHDR\n",
          image);
}

}  // namespace orva::tool
