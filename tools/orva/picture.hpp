// Pictures in files that other programs show: one frame of RGB or, as A8P, of grey.
#pragma once

#include "file_kind.hpp"
#include "files.hpp"
#include "images.hpp"

#include <orva/convert.hpp>

namespace orva::tool {

// Fails if no picture of the kind holds the format. PPM holds RGB without its alpha.
void requirePictureFormat(FileKind kind, const std::string& name, Format format);

// RGB32I, RGB24I of a picture without alpha, A8P of one that is grey, too.
Image readPicture(FileKind kind, InputFile& file);

// Writes all of the file.
void writePicture(FileKind kind, MemoryFile& file, const ConstImageView& image);

// About how many bytes that takes at most: of the file and of a copy in the file's format.
std::uint64_t pictureMemory(FileKind kind, Format format, FrameSize size);

}  // namespace orva::tool
