// Raw clips: frame after frame of planes and rows without gaps but in V210, whose rows are
// multiples of 128 bytes.
#pragma once

#include "files.hpp"
#include "frames.hpp"

namespace orva::tool {

// Bytes of a frame in a raw file; fails if they are too many to count.
std::uint64_t rawFrameBytes(Format format, FrameSize size);

std::unique_ptr<FrameReader> openRaw(InputFile file, const InputSettings& settings);
std::unique_ptr<FrameWriter> createRaw(const std::string& name);

}  // namespace orva::tool
