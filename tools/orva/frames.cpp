// Raw clips and pictures as sequences of frames.
#include "frames.hpp"

#include "failure.hpp"
#include "files.hpp"
#include "picture.hpp"

#include <array>
#include <cctype>
#include <tuple>
#include <utility>

namespace orva::tool {
namespace {

// What follows a row in a raw file: in V210 whole blocks of 48 pixels make a row there, as other
// programs and capture cards have it.
using Gap = std::array<std::byte, 128>;

std::size_t gapBytes(Format format, std::uint64_t rowBytes) {
    constexpr std::size_t block = std::tuple_size_v<Gap>;
    return format == Format::V210 ? (block - rowBytes % block) % block : 0;
}

class RawReader final : public FrameReader {
public:
    RawReader(const std::string& name, Format format, FrameSize size)
        : file(name), format(format), frameSize(size), frameBytes(rawFrameBytes(format, size)) {
        if (file.size() && *file.size() % frameBytes != 0) {
            failPartial(*file.size());
        }
        if (file.size() == 0) {
            throw Failure(file.name() + ": holds no frame");
        }
    }

    FrameSize size() const override { return frameSize; }

    std::optional<std::uint64_t> count() const override {
        return file.size() ? std::optional(*file.size() / frameBytes) : std::nullopt;
    }

    bool next(const ImageView& image) override {
        std::uint64_t read = 0;
        bool ended = false;
        const auto fill = [&](std::span<std::byte> bytes) {
            if (!ended) {
                const std::size_t count = file.read(bytes);
                read += count;
                ended = count < bytes.size();
            }
        };
        Gap gap;
        forEachRow(image, [&](std::span<std::byte> row) {
            fill(row);
            fill(std::span(gap).first(gapBytes(format, row.size())));
        });
        total += read;
        if (ended && read > 0) {
            failPartial(total);
        }
        if (total == 0) {
            throw Failure(file.name() + ": holds no frame");
        }
        return !ended;
    }

private:
    [[noreturn]] void failPartial(std::uint64_t bytes) const {
        throw Failure(file.name() + ": " + std::to_string(bytes) +
                      " bytes are not a whole number of frames, each " +
                      frameText(format, frameSize) + " with " + std::to_string(frameBytes) +
                      " bytes");
    }

    InputFile file;
    Format format;
    FrameSize frameSize;
    std::uint64_t frameBytes;
    std::uint64_t total = 0;
};

class PictureReader final : public FrameReader {
public:
    explicit PictureReader(const std::string& name) : picture(readPicture(name)) {}

    FrameSize size() const override { return {picture.width(), picture.height()}; }

    std::optional<std::uint64_t> count() const override { return 1; }

    bool next(const ImageView& image) override {
        if (read) {
            return false;
        }
        convertImage(std::as_const(picture).view(), image);
        read = true;
        return true;
    }

private:
    Image picture;
    bool read = false;
};

class RawWriter final : public FrameWriter {
public:
    explicit RawWriter(const std::string& name) : file(name) {}

    void write(const ConstImageView& image) override {
        const Gap zero = {};
        forEachRow(image, [&](std::span<const std::byte> row) {
            file.write(row);
            file.write(std::span(zero).first(gapBytes(image.format, row.size())));
        });
    }

    void commit() override { file.commit(); }

private:
    OutputFile file;
};

// Where a picture's name holds the frame's number: "%d" or "%04d".
struct NumberPlace {
    std::size_t begin;
    std::size_t end;
    std::size_t digits;
};

std::optional<NumberPlace> numberPlace(const std::string& name) {
    const std::size_t begin = name.find('%');
    if (begin == std::string::npos) {
        return std::nullopt;
    }
    std::size_t end = begin + 1;
    std::size_t digits = 0;
    for (; end < name.size() && std::isdigit(static_cast<unsigned char>(name[end])) && digits < 10;
         ++end) {
        digits = digits * 10 + static_cast<std::size_t>(name[end] - '0');
    }
    if (end == name.size() || name[end] != 'd') {
        return std::nullopt;
    }
    return NumberPlace{begin, end + 1, digits};
}

class PictureWriter final : public FrameWriter {
public:
    explicit PictureWriter(const std::string& name) : name(name), place(numberPlace(name)) {}

    void write(const ConstImageView& image) override {
        ++written;
        writePicture(frameName(), image);
    }

    bool full() const override { return !place && written > 0; }

private:
    std::string frameName() const {
        if (!place) {
            return name;
        }
        std::string number = std::to_string(written);
        number.insert(0, place->digits - std::min(place->digits, number.size()), '0');
        return std::string(name).replace(place->begin, place->end - place->begin, number);
    }

    std::string name;
    std::optional<NumberPlace> place;
    std::uint64_t written = 0;
};

void requirePictureFormat(const std::string& name, Format format) {
    if (!isPictureFormat(format)) {
        throw Failure(name + ": pictures hold formats of RGB, not " +
                      std::string(formatInfo(format).name));
    }
}

}  // namespace

bool inFiles(Format format) { return formatInfo(format).planes[mainPlane].unitBytes > 0; }

std::uint64_t rawFrameBytes(Format format, FrameSize size) {
    std::uint64_t bytesOfRows = 0;  // one of each plane: all planes have as many
    for (const PlaneIndex plane : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        const std::uint64_t bytes = rowBytes(format, plane, size.width);
        bytesOfRows += bytes + gapBytes(format, bytes);
    }
    if (bytesOfRows > UINT64_MAX / 2 / size.height) {
        throw Failure(frameText(format, size) + ": is too large");
    }
    return bytesOfRows * size.height;
}

std::unique_ptr<FrameReader> openFrames(const std::string& name, Format format,
                                        std::optional<FrameSize> size) {
    if (!isPictureName(name)) {
        if (!size) {
            throw Failure(name + ": a raw file needs --size");
        }
        return std::make_unique<RawReader>(name, format, *size);
    }
    requirePictureFormat(name, format);
    auto reader = std::make_unique<PictureReader>(name);
    if (size && (size->width != reader->size().width || size->height != reader->size().height)) {
        throw Failure(name + ": is " + sizeText(reader->size()) + ", not " + sizeText(*size));
    }
    return reader;
}

std::unique_ptr<FrameWriter> createFrames(const std::string& name, Format format) {
    if (!isPictureName(name)) {
        return std::make_unique<RawWriter>(name);
    }
    requirePictureFormat(name, format);
    return std::make_unique<PictureWriter>(name);
}

}  // namespace orva::tool
