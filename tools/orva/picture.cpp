// Pictures: which file format, and from and to its order of bytes.
#include "picture.hpp"

#include "files.hpp"
#include "images.hpp"
#include "png.hpp"
#include "ppm.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <utility>

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

bool isPictureFormat(Format format) { return formatInfo(format).model == Model::rgb; }

Image readPicture(const std::string& name) {
    InputFile file(name);
    return isPng(name) ? readPng(file) : readPpm(file);
}

void writePicture(const std::string& name, const ConstImageView& image) {
    const bool alpha = isPng(name) && formatInfo(image.format).hasAlpha;
    Image picture =
        createImage(alpha ? Format::RGB32I : Format::RGB24I, {image.width, image.height});
    convertImage(image, picture.view());
    OutputFile file(name);
    (isPng(name) ? writePng : writePpm)(file, std::as_const(picture).view());
    file.commit();
}

}  // namespace orva::tool
