// Pictures as clips: one, or one for each frame in files whose names are numbered.
#pragma once

#include "files.hpp"
#include "frames.hpp"
#include "numbered_name.hpp"

namespace orva::tool {

std::unique_ptr<FrameReader> openPicture(FileKind kind, InputFile file,
                                         const InputSettings& settings);

// From settings.start on up to the first number that is missing; all of one size.
std::unique_ptr<FrameReader> openNumberedPictures(const std::string& name, NumberedName numbered,
                                                  const InputSettings& settings);

// A name with a number keeps every frame, one without it the first.
std::unique_ptr<FrameWriter> createPictures(FileKind kind, const std::string& name,
                                            const OutputSettings& settings);

}  // namespace orva::tool
