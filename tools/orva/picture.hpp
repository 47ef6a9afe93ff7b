// Pictures in files that other programs show: RGB images of one frame as PNG or PPM.
#pragma once

#include <orva/convert.hpp>

#include <string>

namespace orva::tool {

// Whether a file's name ends in .png or .ppm.
bool isPictureName(const std::string& name);

// Whether a picture can keep a format: all of RGB, alpha in a PNG file only.
bool isPictureFormat(Format format);

// Reads a file in the format that its name says into RGB32I or, if it has no alpha, RGB24I.
Image readPicture(const std::string& name);

void writePicture(const std::string& name, const ConstImageView& image);

}  // namespace orva::tool
