// Y4M clips (YUV4MPEG2): a line of text says what the frames are, and each frame follows a line of
// its own. 4:2:2 of 8 bits is Y8PU8PV8P, of 10 bits Y10PU10PV10P.
#pragma once

#include "files.hpp"
#include "frames.hpp"

namespace orva::tool {

std::unique_ptr<FrameReader> openY4m(InputFile file, const InputSettings& settings);

// Fails for other formats than these two. Without a rate the clip gets 25 frames a second.
std::unique_ptr<FrameWriter> createY4m(const std::string& name, const OutputSettings& settings);

}  // namespace orva::tool
