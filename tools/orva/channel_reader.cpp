// From a file's format to the plain one, frame by frame.
#include "channel_reader.hpp"

#include <utility>

namespace orva::tool {

ChannelReader::ChannelReader(const std::string& name, const InputSettings& settings)
    : reader(openFrames(name, settings)), image(createImage(format(), size())),
      plain(createImage(plainFormat(format()), size())) {}

bool ChannelReader::next() {
    if (!reader->next(image.view())) {
        return false;
    }
    convertImage(std::as_const(image).view(), plain.view());
    return true;
}

const SampleRow& ChannelReader::samples(const Channel& channel, std::uint32_t y) {
    readSamples(std::as_const(plain).view(), channel, y, row);
    return row;
}

}  // namespace orva::tool
