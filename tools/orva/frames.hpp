// Frames in files: raw clips, in which planes and rows follow one another (main, chroma, Cr, alpha)
// without gaps but in V210, whose rows are multiples of 128 bytes, and pictures of one frame.
#pragma once

#include "images.hpp"

#include <orva/convert.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace orva::tool {

// Whether files hold the format: a constant has no planes.
bool inFiles(Format format);

// Bytes of a frame in a raw file; fails if they are too many to count.
std::uint64_t rawFrameBytes(Format format, FrameSize size);

class FrameReader {
public:
    virtual ~FrameReader() = default;

    virtual FrameSize size() const = 0;

    // How many frames there are, where that can be known.
    virtual std::optional<std::uint64_t> count() const = 0;

    // Reads the next frame, of the reader's format and size; false behind the last one.
    virtual bool next(const ImageView& image) = 0;
};

// A picture brings its own size; a raw file needs one.
std::unique_ptr<FrameReader> openFrames(const std::string& name, Format format,
                                        std::optional<FrameSize> size);

class FrameWriter {
public:
    virtual ~FrameWriter() = default;

    virtual void write(const ConstImageView& image) = 0;

    // Whether no further frame would be kept.
    virtual bool full() const { return false; }

    // Makes what has been written appear under its name.
    virtual void commit() {}
};

// A picture's name may hold %d or %04d, which becomes the number of the frame, from 1 on; a picture
// whose name holds neither keeps the first frame only.
std::unique_ptr<FrameWriter> createFrames(const std::string& name, Format format);

}  // namespace orva::tool
