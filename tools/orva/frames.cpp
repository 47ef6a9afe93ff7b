// Which reader and which writer serve a file.
#include "frames.hpp"

#include "failure.hpp"
#include "file_names.hpp"
#include "files.hpp"
#include "picture_frames.hpp"
#include "raw_frames.hpp"
#include "y4m.hpp"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace orva::tool {
namespace {

std::unique_ptr<FrameReader> openAll(const std::string& name, const InputSettings& settings) {
    std::error_code ignored;
    if (!std::filesystem::exists(pathOf(name), ignored) && isPicture(kindOfName(name))) {
        if (NumberedName numbered(name); numbered.hasNumber()) {
            return openNumberedPictures(name, std::move(numbered), settings);
        }
    }
    if (settings.start) {
        throw Failure(name + ": holds no number that could start at " +
                      std::to_string(*settings.start));
    }
    InputFile file(name);
    switch (const FileKind kind =
                kindOfContents(name, file.peek(kindHeadBytes), settings.size.has_value())) {
    case FileKind::raw:
        return openRaw(std::move(file), settings);
    case FileKind::y4m:
        return openY4m(std::move(file), settings);
    default:
        return openPicture(kind, std::move(file), settings);
    }
}

// Another reader, for those that change something about it.
class ChangedFrames : public FrameReader {
public:
    explicit ChangedFrames(std::unique_ptr<FrameReader> other) : other(std::move(other)) {}

    Format format() const override { return other->format(); }
    FrameSize size() const override { return other->size(); }
    ClipProperties properties() const override { return other->properties(); }
    std::optional<std::uint64_t> count() const override { return other->count(); }
    bool next(const ImageView& image) override { return other->next(image); }

private:
    std::unique_ptr<FrameReader> other;
};

// The first ones.
class FirstFrames final : public ChangedFrames {
public:
    FirstFrames(std::unique_ptr<FrameReader> all, std::uint64_t most)
        : ChangedFrames(std::move(all)), left(most), most(most) {}

    std::optional<std::uint64_t> count() const override {
        const auto there = ChangedFrames::count();
        return there ? std::optional(std::min(*there, most)) : std::nullopt;
    }

    bool next(const ImageView& image) override {
        if (left == 0) {
            return false;
        }
        --left;
        return ChangedFrames::next(image);
    }

private:
    std::uint64_t left;
    std::uint64_t most;
};

// With the same alpha everywhere, in formats of four bytes a pixel.
class UniformAlpha final : public ChangedFrames {
public:
    UniformAlpha(std::unique_ptr<FrameReader> frames, std::size_t place, int alpha)
        : ChangedFrames(std::move(frames)), place(place), alpha(static_cast<std::byte>(alpha)) {}

    bool next(const ImageView& image) override {
        if (!ChangedFrames::next(image)) {
            return false;
        }
        forEachRow(image, [this](std::span<std::byte> row) {
            for (std::size_t i = place; i < row.size(); i += 4) {
                row[i] = alpha;
            }
        });
        return true;
    }

private:
    std::size_t place;
    std::byte alpha;
};

}  // namespace

bool inFiles(Format format) { return formatInfo(format).planes[mainPlane].unitBytes > 0; }

std::unique_ptr<FrameReader> openFrames(const std::string& name, const InputSettings& settings) {
    if (name.empty()) {
        throw Failure("the name of an input is empty");
    }
    auto reader = openAll(name, settings);
    if (settings.size && *settings.size != reader->size()) {
        throw Failure(name + ": is " + sizeText(reader->size()) + ", not " +
                      sizeText(*settings.size));
    }
    if (settings.padding) {
        reader = std::make_unique<UniformAlpha>(std::move(reader), *settings.padding,
                                                settings.paddingAlpha);
    }
    if (settings.frames) {
        reader = std::make_unique<FirstFrames>(std::move(reader), *settings.frames);
    }
    return reader;
}

std::unique_ptr<FrameWriter> createFrames(const std::string& name, const OutputSettings& settings) {
    if (name.empty()) {
        throw Failure("the name of the output is empty");
    }
    const FileKind kind = settings.kind ? *settings.kind : kindOfName(name);
    if (settings.rate && kind != FileKind::y4m) {
        throw Failure(name + ": has no place for a rate; Y4M files have");
    }
    switch (kind) {
    case FileKind::raw:
        return createRaw(name);
    case FileKind::y4m:
        return createY4m(name, settings);
    default:
        return createPictures(kind, name, settings);
    }
}

}  // namespace orva::tool
