// Pictures and images: which file format, and where each pixel's bytes are.
#include "picture.hpp"

#include "channels.hpp"
#include "failure.hpp"
#include "files.hpp"
#include "png.hpp"
#include "ppm.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace orva::tool {
namespace {

std::string extensionOf(const std::string& name) {
    std::string extension = std::filesystem::path(name).extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

bool isPng(const std::string& name) { return extensionOf(name) == ".png"; }

}  // namespace

bool isPictureName(const std::string& name) { return isPng(name) || extensionOf(name) == ".ppm"; }

bool isPictureFormat(Format format) {
    return format == Format::BGR32I || formatInfo(format).colour == Format::BGR24I;
}

Picture readPicture(const std::string& name) {
    InputFile file(name);
    return isPng(name) ? readPng(file) : readPpm(file);
}

void writePicture(const std::string& name, const Picture& picture) {
    OutputFile file(name);
    if (isPng(name)) {
        writePng(file, picture);
    } else {
        writePpm(file, picture);
    }
    file.commit();
}

Picture toPicture(const ConstImageView& image) {
    const auto channels = channelsOf(image.format);
    Picture picture{image.width, image.height, channels.size() == 4, {}};
    picture.bytes.resize(std::size_t{image.width} * image.height * picture.bytesPerPixel());
    for (std::size_t c = 0; c < channels.size(); ++c) {
        std::byte* out = picture.bytes.data() + c;
        for (std::uint32_t y = 0; y < image.height; ++y) {
            const Samples row = samplesOf(image, channels[c], y);
            for (std::uint32_t x = 0; x < image.width; ++x, out += picture.bytesPerPixel()) {
                *out = row[x];
            }
        }
    }
    return picture;
}

void toImage(const Picture& picture, const ImageView& image) {
    const auto channels = channelsOf(image.format);
    for (std::size_t c = 0; c < channels.size(); ++c) {
        const bool opaque = c >= picture.bytesPerPixel();
        const std::byte* in = picture.bytes.data() + (opaque ? 0 : c);
        for (std::uint32_t y = 0; y < image.height; ++y) {
            const Samples row = samplesOf(image, channels[c], y);
            for (std::uint32_t x = 0; x < image.width; ++x, in += picture.bytesPerPixel()) {
                row[x] = opaque ? std::byte{255} : *in;
            }
        }
    }
}

}  // namespace orva::tool
