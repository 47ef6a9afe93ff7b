// Reads the frames of a file sample by sample.
#pragma once

#include "channels.hpp"
#include "frames.hpp"

namespace orva::tool {

class ChannelReader {
public:
    ChannelReader(const std::string& name, const InputSettings& settings);

    Format format() const { return reader->format(); }
    FrameSize size() const { return reader->size(); }
    ClipProperties properties() const { return reader->properties(); }

    // Goes on to the next frame; false behind the last one.
    bool next();

    // A row of this frame, until the next call.
    const SampleRow& samples(const Channel& channel, std::uint32_t y);

private:
    std::unique_ptr<FrameReader> reader;
    Image image;
    Image plain;
    SampleRow row;
};

}  // namespace orva::tool
