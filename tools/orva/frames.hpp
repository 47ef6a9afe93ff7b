// Frames in files: raw clips, Y4M clips and pictures, which may be numbered. The commands read and
// write them alike.
#pragma once

#include "file_kind.hpp"
#include "images.hpp"

#include <orva/convert.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orva::tool {

// Whether files hold the format: a constant has no planes.
bool inFiles(Format format);

// What a file may say about its clip besides format and size. Texts are those of a Y4M header, and
// empty where nothing is known.
struct ClipProperties {
    std::string rate;         // frames a second, "30000:1001"
    std::string interlacing;  // "p", "t", "b", "m" or "?"
    std::string aspect;       // of a pixel, "1:1"
    std::optional<Range> range;
    std::uint64_t firstNumber = 1;  // of numbered pictures
};

class FrameReader {
public:
    virtual ~FrameReader() = default;

    virtual Format format() const = 0;
    virtual FrameSize size() const = 0;
    virtual ClipProperties properties() const { return {}; }

    // How many frames there are, where that can be known.
    virtual std::optional<std::uint64_t> count() const = 0;

    // Reads the next frame into an image of the reader's format and size; false behind the last
    // one.
    virtual bool next(const ImageView& image) = 0;
};

// What the user says about an input. Raw frames need a format and a size, other files have their
// own, which these must not contradict.
struct InputSettings {
    std::optional<Format> format;
    std::optional<FrameSize> size;
    std::optional<std::uint64_t> start;     // number of the first picture: 0 or, without that, 1
    std::optional<std::uint64_t> frames;    // read no more
    std::string formatOption = "--format";  // what sets the format, for messages
    bool greyIsColour = false;              // a grey picture is RGB24I, not A8P, without a format
    std::optional<std::size_t> padding;     // the byte of a pixel that is alpha, but means nothing
    int paddingAlpha = 255;                 // what it is read as
};

// "-" is standard input. A picture's name may hold the frame's number (numbered_name.hpp), unless
// there is a file of just this name.
std::unique_ptr<FrameReader> openFrames(const std::string& name, const InputSettings& settings);

class FrameWriter {
public:
    virtual ~FrameWriter() = default;

    // How many frames would be kept.
    virtual std::uint64_t capacity() const { return UINT64_MAX; }

    // The part of writing a frame that needs not wait for those before: any thread may do it. What
    // write() needs of it goes into `encoded`, whose memory may be used again.
    virtual void encode(const ConstImageView&, std::vector<std::byte>& /*encoded*/) const {}

    // About how many bytes encoding a frame takes at most.
    virtual std::uint64_t encodingBytes() const { return 0; }

    // Writes the next frame, which has been encoded.
    virtual void write(const ConstImageView& image, std::span<const std::byte> encoded) = 0;

    // Both, for one frame after the other.
    void encodeAndWrite(const ConstImageView& image) {
        std::vector<std::byte> encoded;
        encode(image, encoded);
        write(image, encoded);
    }

    // Makes what has been written appear under its name.
    virtual void commit() {}
};

struct OutputSettings {
    Format format = Format::BGR32I;
    FrameSize size;
    ClipProperties properties;
    std::optional<std::string> rate;  // instead of that of the properties, in Y4M only
    std::optional<FileKind> kind;     // else as the name says
};

// A picture whose name holds no number keeps the first frame only.
std::unique_ptr<FrameWriter> createFrames(const std::string& name, const OutputSettings& settings);

}  // namespace orva::tool
