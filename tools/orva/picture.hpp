// Pictures in files that other programs show: BGR images of one frame as PNG or PPM.
#pragma once

#include <orva/convert.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace orva::tool {

// Rows of B G R or B G R A bytes without gaps.
struct Picture {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    bool alpha = false;
    std::vector<std::byte> bytes;

    std::size_t bytesPerPixel() const { return alpha ? 4 : 3; }
};

// Whether a file's name ends in .png or .ppm.
bool isPictureName(const std::string& name);

// Whether a format can be kept in a picture: BGR32I, BGR24I, BGR24IA8P.
bool isPictureFormat(Format format);

// Read or write the file in the format that its name says.
Picture readPicture(const std::string& name);
void writePicture(const std::string& name, const Picture& picture);

// Between pictures and images of a picture format. A picture without alpha is opaque, and alpha
// that the image has no room for is left out.
Picture toPicture(const ConstImageView& image);
void toImage(const Picture& picture, const ImageView& image);

}  // namespace orva::tool
