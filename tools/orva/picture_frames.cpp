// Pictures as clips.
#include "picture_frames.hpp"

#include "failure.hpp"
#include "file_names.hpp"
#include "picture.hpp"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace orva::tool {
namespace {

// The picture in RGB: of equal red, green and blue where it is grey.
Image inColour(const Image& grey) {
    Image colour = createImage(Format::RGB24I, {grey.width(), grey.height()});
    for (std::uint32_t y = 0; y < grey.height(); ++y) {
        auto out = colour.row(y).begin();
        for (const std::byte value : grey.row(y)) {
            out = std::fill_n(out, 3, value);
        }
    }
    return colour;
}

// The files of numbered pictures, from the first number on.
struct Numbered {
    NumberedName name;
    std::uint64_t first;
    std::uint64_t count;
};

// Pictures, of which the first tells the size and, where the settings do not, the format.
class PictureReader final : public FrameReader {
public:
    PictureReader(FileKind kind, InputFile firstFile, Numbered numbered,
                  const InputSettings& settings)
        : kind(kind), files(std::move(numbered)),
          picture(readPicture(kind, firstFile)), frameSize{picture.width(), picture.height()},
          formatGiven(settings.format.has_value()) {
        const bool grey = picture.format() == Format::A8P;
        frameFormat = settings.format                 ? *settings.format
                      : grey && settings.greyIsColour ? Format::RGB24I
                                                      : picture.format();
        requirePictureFormat(FileKind::png, firstFile.name(), frameFormat);
        requireFit(firstFile.name());
    }

    Format format() const override { return frameFormat; }
    FrameSize size() const override { return frameSize; }
    ClipProperties properties() const override {
        ClipProperties properties;
        properties.firstNumber = files.first;
        return properties;
    }
    std::optional<std::uint64_t> count() const override { return files.count; }

    bool next(const ImageView& image) override {
        if (delivered == files.count) {
            return false;
        }
        if (delivered > 0) {
            readNext();
        }
        ++delivered;
        if (picture.format() == Format::A8P && image.format != Format::A8P) {
            const Image colour = inColour(picture);
            convertImage(colour.view(), image);
        } else {
            convertImage(std::as_const(picture).view(), image);
        }
        return true;
    }

private:
    void readNext() {
        InputFile file(files.name.with(files.first + delivered));
        picture = readPicture(kind, file);
        if (const FrameSize other{picture.width(), picture.height()}; other != frameSize) {
            throw Failure(file.name() + ": is " + sizeText(other) +
                          ", but the pictures before it are " + sizeText(frameSize));
        }
        requireFit(file.name());
    }

    // Whether the frames can hold what the picture does.
    void requireFit(const std::string& name) const {
        const FormatInfo theirs = formatInfo(picture.format()), ours = formatInfo(frameFormat);
        if (ours.model == Model::alpha && !theirs.hasAlpha) {
            throw Failure(name + ": has colour and no alpha, and cannot be A8P");
        }
        if (!formatGiven && theirs.model == Model::rgb && theirs.hasAlpha && !ours.hasAlpha) {
            throw Failure(name + ": has alpha, but the pictures before it have none; name the "
                                 "format that all shall have");
        }
    }

    FileKind kind;
    Numbered files;
    Image picture;
    FrameSize frameSize;
    Format frameFormat = Format::A8C;
    bool formatGiven;
    std::uint64_t delivered = 0;
};

Numbered findNumbered(const std::string& name, NumberedName numbered,
                      std::optional<std::uint64_t> start) {
    const auto isThere = [&](std::uint64_t number) {
        std::error_code ignored;
        return std::filesystem::exists(pathOf(numbered.with(number)), ignored);
    };
    const std::uint64_t first = start ? *start : isThere(0) ? 0 : 1;
    std::uint64_t count = 0;
    while (isThere(first + count)) {
        ++count;
    }
    if (count == 0) {
        throw Failure(name + ": there is no " + (start ? "" : numbered.with(0) + " and no ") +
                      numbered.with(first) + (start ? "" : "; --start names the first number"));
    }
    return {std::move(numbered), first, count};
}

class PictureWriter final : public FrameWriter {
public:
    PictureWriter(FileKind kind, const std::string& name, const OutputSettings& settings)
        : kind(kind), shownName(name), name(name), number(settings.properties.firstNumber),
          memory(pictureMemory(kind, settings.format, settings.size)) {}

    std::uint64_t capacity() const override { return name.hasNumber() ? UINT64_MAX : 1; }

    void encode(const ConstImageView& image, std::vector<std::byte>& encoded) const override {
        MemoryFile file(shownName, encoded);
        writePicture(kind, file, image);
    }

    std::uint64_t encodingBytes() const override { return memory; }

    void write(const ConstImageView&, std::span<const std::byte> encoded) override {
        OutputFile file(name.with(number++));
        file.write(encoded);
        file.commit();
    }

private:
    FileKind kind;
    std::string shownName;  // of a frame that has not its number yet
    NumberedName name;
    std::uint64_t number;
    std::uint64_t memory;
};

}  // namespace

std::unique_ptr<FrameReader> openPicture(FileKind kind, InputFile file,
                                         const InputSettings& settings) {
    return std::make_unique<PictureReader>(kind, std::move(file), Numbered{NumberedName(""), 1, 1},
                                           settings);
}

std::unique_ptr<FrameReader> openNumberedPictures(const std::string& name, NumberedName numbered,
                                                  const InputSettings& settings) {
    Numbered files = findNumbered(name, std::move(numbered), settings.start);
    InputFile first(files.name.with(files.first));
    return std::make_unique<PictureReader>(kindOfName(name), std::move(first), std::move(files),
                                           settings);
}

std::unique_ptr<FrameWriter> createPictures(FileKind kind, const std::string& name,
                                            const OutputSettings& settings) {
    requirePictureFormat(kind, name, settings.format);
    return std::make_unique<PictureWriter>(kind, name, settings);
}

}  // namespace orva::tool
