// Raw clips.
#include "raw_frames.hpp"

#include "failure.hpp"

#include <array>
#include <utility>

namespace orva::tool {
namespace {

// What follows a row in a raw file: in V210 whole blocks of 48 pixels make a row there, as other
// programs and capture cards have it.
using Gap = std::array<std::byte, 128>;

// Calls visit(part, gap) for all bytes of a raw frame: parts of the image as long as can be, and
// how many bytes follow each in the file that the image does not have.
template <class Byte, class Visit>
void forEachPart(const BasicImageView<Byte>& image, Visit visit) {
    for (const PlaneIndex index : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
        const auto row = static_cast<std::size_t>(rowBytes(image.format, index, image.width));
        const auto gap =
            static_cast<std::size_t>(framePitch(image.format, index, image.width)) - row;
        const BasicPlane<Byte>& plane = planeOf(image, index);
        const auto pitch = static_cast<std::size_t>(plane.pitch);
        if (pitch == row && gap == 0) {
            visit(plane.bytes.first(row * image.height), gap);
        } else {
            for (std::uint32_t y = 0; row > 0 && y < image.height; ++y) {
                visit(plane.bytes.subspan(pitch * y, row), gap);
            }
        }
    }
}

class RawReader final : public FrameReader {
public:
    RawReader(InputFile opened, Format format, FrameSize size)
        : file(std::move(opened)), frameFormat(format), frameSize(size),
          frameBytes(rawFrameBytes(format, size)) {
        if (file.size() && *file.size() % frameBytes != 0) {
            failPartial(*file.size());
        }
        if (file.size() == 0) {
            throw Failure(file.name() + ": holds no frame");
        }
    }

    Format format() const override { return frameFormat; }
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
        forEachPart(image, [&](std::span<std::byte> part, std::size_t gapBytes) {
            fill(part);
            fill(std::span(gap).first(gapBytes));
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
                      frameText(frameFormat, frameSize) + " with " + std::to_string(frameBytes) +
                      " bytes");
    }

    InputFile file;
    Format frameFormat;
    FrameSize frameSize;
    std::uint64_t frameBytes;
    std::uint64_t total = 0;
};

class RawWriter final : public FrameWriter {
public:
    explicit RawWriter(const std::string& name) : file(name) {}

    void write(const ConstImageView& image, std::span<const std::byte>) override {
        const Gap zero = {};
        forEachPart(image, [&](std::span<const std::byte> part, std::size_t gapBytes) {
            file.write(part);
            file.write(std::span(zero).first(gapBytes));
        });
    }

    void commit() override { file.commit(); }

private:
    OutputFile file;
};

}  // namespace

std::uint64_t rawFrameBytes(Format format, FrameSize size) {
    const std::uint64_t bytes = frameBytes(format, size.width, size.height);
    if (bytes == UINT64_MAX) {
        failTooLarge(format, size);
    }
    return bytes;
}

std::unique_ptr<FrameReader> openRaw(InputFile file, const InputSettings& settings) {
    if (!settings.format) {
        throw Failure(file.name() + ": a raw file needs " + settings.formatOption + " and --size");
    }
    if (!settings.size) {
        throw Failure(file.name() + ": a raw file needs --size");
    }
    return std::make_unique<RawReader>(std::move(file), *settings.format, *settings.size);
}

std::unique_ptr<FrameWriter> createRaw(const std::string& name) {
    return std::make_unique<RawWriter>(name);
}

}  // namespace orva::tool
