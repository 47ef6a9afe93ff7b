// Raw clips and pictures as sequences of frames.
#include "frames.hpp"

#include "failure.hpp"
#include "files.hpp"
#include "picture.hpp"

#include <array>
#include <cctype>

namespace orva::tool {
namespace {

std::string sizeText(FrameSize size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::string frameText(Format format, FrameSize size) {
    return std::string(formatInfo(format).name) + " of " + sizeText(size);
}

// Calls visit(row) for each of the frame's rows in the order of a raw file.
template <class Byte, class Visit> void forEachRow(const BasicImageView<Byte>& image, Visit visit) {
    const FormatInfo& info = formatInfo(image.format);
    const auto plane = [&](const BasicPlane<Byte>& rows, std::size_t bytesPerPixel) {
        const std::size_t rowBytes = image.width * bytesPerPixel;
        for (std::uint32_t y = 0; rowBytes > 0 && y < image.height; ++y) {
            visit(rows.bytes.subspan(static_cast<std::size_t>(rows.pitch) * y, rowBytes));
        }
    };
    plane(image.main, info.bytesPerPixel);
    plane(image.chroma, info.chromaPlane ? 1 : 0);
    plane(image.alpha, info.alphaPlane ? 1 : 0);
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
        forEachRow(image, [&](std::span<std::byte> row) {
            if (!ended) {
                const std::size_t count = file.read(row);
                read += count;
                ended = count < row.size();
            }
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

    FrameSize size() const override { return {picture.width, picture.height}; }

    std::optional<std::uint64_t> count() const override { return 1; }

    bool next(const ImageView& image) override {
        if (read) {
            return false;
        }
        toImage(picture, image);
        read = true;
        return true;
    }

private:
    Picture picture;
    bool read = false;
};

class RawWriter final : public FrameWriter {
public:
    explicit RawWriter(const std::string& name) : file(name) {}

    void write(const ConstImageView& image) override {
        forEachRow(image, [this](std::span<const std::byte> row) { file.write(row); });
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
        writePicture(frameName(), toPicture(image));
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

void requireSize(Format format, FrameSize size) {
    if (formatInfo(format).bytesPerPixel == 0) {
        throw Failure(std::string(formatInfo(format).name) + " has no planes, so no file holds it");
    }
    if (formatInfo(format).pixelPairs && size.width % 2 != 0) {
        throw Failure(frameText(format, size) +
                      ": the width is odd, and 4:2:2 formats hold whole pixel pairs");
    }
}

void requirePictureFormat(const std::string& name, Format format) {
    if (!isPictureFormat(format)) {
        throw Failure(name + ": pictures hold BGR32I, BGR24I or BGR24IA8P, not " +
                      std::string(formatInfo(format).name));
    }
}

}  // namespace

std::uint64_t rawFrameBytes(Format format, FrameSize size) {
    const FormatInfo& info = formatInfo(format);
    const std::uint64_t bytesPerPixel =
        info.bytesPerPixel + (info.chromaPlane ? 1u : 0u) + (info.alphaPlane ? 1u : 0u);
    return bytesPerPixel * size.width * size.height;
}

Image createImage(Format format, FrameSize size) {
    requireSize(format, size);
    std::optional<Image> image = Image::create(format, size.width, size.height);
    if (!image) {
        throw Failure(frameText(format, size) + ": is too large");
    }
    return std::move(*image);
}

std::unique_ptr<FrameReader> openFrames(const std::string& name, Format format,
                                        std::optional<FrameSize> size) {
    if (!isPictureName(name)) {
        if (!size) {
            throw Failure(name + ": a raw file needs --size");
        }
        requireSize(format, *size);
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
