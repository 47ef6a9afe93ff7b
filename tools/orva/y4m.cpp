// Y4M clips.
#include "y4m.hpp"

#include "failure.hpp"
#include "format_names.hpp"
#include "header.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace orva::tool {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view magic = "YUV4MPEG2";
constexpr std::string_view frameLine = "FRAME";
constexpr std::string_view rangeTag = "COLORRANGE=";
constexpr std::array colours = {std::pair{"422"sv, Format::Y8PU8PV8P},
                                std::pair{"422p10"sv, Format::Y10PU10PV10P}};

struct Header {
    FrameSize size;
    Format format = Format::A8C;
    ClipProperties properties;
};

Format formatOf(const InputFile& file, const std::string& colour) {
    for (const auto& [name, format] : colours) {
        if (colour == name) {
            return format;
        }
    }
    throw Failure(file.name() + ": its frames are C" + printable(colour) +
                  "; only 4:2:2 of 8 or 10 bits can be read (C422, C422p10), which ffmpeg makes "
                  "with -pix_fmt yuv422p or yuv422p10le");
}

bool isRatio(std::string_view text) {
    const std::size_t colon = text.find(':');
    return colon != text.npos && wholeNumber(text.substr(0, colon)) &&
           wholeNumber(text.substr(colon + 1));
}

// Sets what a tag such as "W1920" says; false if it cannot be.
bool setTag(Header& header, std::string& colour, char tag, const std::string& value) {
    ClipProperties& properties = header.properties;
    switch (tag) {
    case 'W':
        header.size.width = wholeNumber(value).value_or(0);
        return header.size.width > 0;
    case 'H':
        header.size.height = wholeNumber(value).value_or(0);
        return header.size.height > 0;
    case 'C':
        colour = value;
        return true;
    case 'F':
        properties.rate = value;
        return isRatio(value);
    case 'A':
        properties.aspect = value;
        return isRatio(value);
    case 'I':
        properties.interlacing = value;
        return value.size() == 1 && "ptbm?"sv.find(value) != std::string_view::npos;
    case 'X':
        if (value.starts_with(rangeTag)) {
            const std::string range = value.substr(rangeTag.size());
            properties.range = range == "FULL" ? Range::full : Range::studio;
            return range == "FULL" || range == "LIMITED";
        }
        return true;  // what other programs say to themselves
    default:
        return false;
    }
}

Header readHeader(InputFile& file) {
    std::string line = readLine(file);
    if (!line.starts_with(std::string(magic) + ' ')) {
        throw Failure(file.name() + ": is not a Y4M file, which begins with " + std::string(magic));
    }
    if (!line.ends_with('\n')) {
        failHeader(file);
    }
    line.pop_back();
    Header header;
    std::string colour = "420";  // so it is if nothing is said
    for (std::size_t begin = magic.size() + 1; begin <= line.size();) {
        const std::size_t end = std::min(line.find(' ', begin), line.size());
        const std::string tag = line.substr(begin, end - begin);
        if (!tag.empty() && !setTag(header, colour, tag.front(), tag.substr(1))) {
            throw Failure(file.name() + ": its header says '" + printable(tag) +
                          "', which cannot be read");
        }
        begin = end + 1;
    }
    if (header.size.width == 0 || header.size.height == 0) {
        throw Failure(file.name() + ": its header does not say how large frames are (W, H)");
    }
    header.format = formatOf(file, colour);
    return header;
}

// What the library has in a row of luma but the file has not: the second sample of a pair that is
// half outside the picture.
std::size_t bytesBeyond(Format format, std::uint32_t width) {
    return width % 2 * (formatInfo(format).bits > 8 ? 2 : 1);
}

// Calls visit(row, stored) with each row and how many of its bytes the file has.
template <class Byte, class Visit>
void forEachStoredRow(const BasicImageView<Byte>& image, Visit visit) {
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane}) {
        const std::size_t beyond = plane == mainPlane ? bytesBeyond(image.format, image.width) : 0;
        for (std::uint32_t y = 0; y < image.height; ++y) {
            const std::span<Byte> row = image.row(y, plane);
            visit(row, row.size() - beyond);
        }
    }
}

class Y4mReader final : public FrameReader {
public:
    explicit Y4mReader(InputFile opened) : file(std::move(opened)), header(readHeader(file)) {
        requireMemory(header.format, header.size);
        const auto [width, height] = header.size;
        const std::uint64_t beyond = std::uint64_t{height} * bytesBeyond(header.format, width);
        if (!file.holds(frameBytes(header.format, width, height) - beyond)) {
            throw Failure(file.name() + ": ends within its first frame, " +
                          frameText(header.format, header.size));
        }
    }

    Format format() const override { return header.format; }
    FrameSize size() const override { return header.size; }
    ClipProperties properties() const override { return header.properties; }

    // Unknown: lines of frames may have any length.
    std::optional<std::uint64_t> count() const override { return std::nullopt; }

    bool next(const ImageView& image) override {
        const std::string line = readLine(file);
        if (line.empty()) {
            if (read == 0) {
                throw Failure(file.name() + ": holds no frame");
            }
            return false;
        }
        ++read;
        const bool begins = line.starts_with(std::string(frameLine) + ' ') ||
                            line.starts_with(std::string(frameLine) + '\n');
        if (!begins || !line.ends_with('\n')) {
            throw Failure(file.name() + ": frame " + std::to_string(read) +
                          " does not begin with a line FRAME");
        }
        forEachStoredRow(image, [&](std::span<std::byte> row, std::size_t stored) {
            if (file.read(row.first(stored)) != stored) {
                throw Failure(file.name() + ": ends within frame " + std::to_string(read));
            }
            // What lies beyond the picture may be copied, and is the last sample again then.
            for (std::size_t i = stored; i < row.size(); ++i) {
                row[i] = row[i - (row.size() - stored)];
            }
        });
        return true;
    }

private:
    InputFile file;
    Header header;
    std::uint64_t read = 0;
};

class Y4mWriter final : public FrameWriter {
public:
    Y4mWriter(const std::string& name, const std::string& header) : file(name) {
        writeLine(header);
    }

    void write(const ConstImageView& image, std::span<const std::byte>) override {
        writeLine(std::string(frameLine));
        forEachStoredRow(image, [&](std::span<const std::byte> row, std::size_t stored) {
            file.write(row.first(stored));
        });
    }

    void commit() override { file.commit(); }

private:
    void writeLine(std::string text) {
        text += '\n';
        file.write(std::as_bytes(std::span(text)));
    }

    OutputFile file;
};

}  // namespace

std::unique_ptr<FrameReader> openY4m(InputFile file, const InputSettings& settings) {
    const std::string name = file.name();
    auto reader = std::make_unique<Y4mReader>(std::move(file));
    if (settings.format && *settings.format != reader->format()) {
        throw Failure(name + ": holds " + nameOf(reader->format()) + ", not " +
                      nameOf(*settings.format) + " as " + settings.formatOption + " says");
    }
    return reader;
}

std::unique_ptr<FrameWriter> createY4m(const std::string& name, const OutputSettings& settings) {
    const ClipProperties& clip = settings.properties;
    const std::string rate = settings.rate.value_or(clip.rate.empty() ? "25:1" : clip.rate);
    for (const auto& [colour, format] : colours) {
        if (format != settings.format) {
            continue;
        }
        std::string header = std::string(magic) + " W" + std::to_string(settings.size.width) +
                             " H" + std::to_string(settings.size.height) + " F" + rate;
        header += clip.interlacing.empty() ? "" : " I" + clip.interlacing;
        header += clip.aspect.empty() ? "" : " A" + clip.aspect;
        header += " C" + std::string(colour);
        if (clip.range) {
            header +=
                " X" + std::string(rangeTag) + (*clip.range == Range::full ? "FULL" : "LIMITED");
        }
        return std::make_unique<Y4mWriter>(name, header);
    }
    throw Failure(name + ": Y4M holds Y8PU8PV8P (yuv422p) and Y10PU10PV10P (yuv422p10le), not " +
                  nameOf(settings.format));
}

}  // namespace orva::tool
