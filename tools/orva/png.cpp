// PNG files through libpng.
#include "png.hpp"

#include "failure.hpp"

#if ORVA_HAVE_PNG
#include <png.h>
#endif

namespace orva::tool {

#if ORVA_HAVE_PNG

namespace {

struct PngImage : png_image {
    PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
    ~PngImage() { png_image_free(this); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

[[noreturn]] void fail(const std::string& name, const PngImage& image) {
    throw Failure(name + ": " + image.message);
}

}  // namespace

Picture readPng(InputFile& file) {
    PngImage image;
    if (!png_image_begin_read_from_stdio(&image, file.stream())) {
        fail(file.name(), image);
    }
    // Alpha is kept where there is any: without it, libpng would blend onto a background.
    const bool alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format = alpha ? PNG_FORMAT_BGRA : PNG_FORMAT_BGR;
    Picture picture{image.width, image.height, alpha, {}};
    picture.bytes.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, picture.bytes.data(), 0, nullptr)) {
        fail(file.name(), image);
    }
    return picture;
}

void writePng(OutputFile& file, const Picture& picture) {
    PngImage image;
    image.width = picture.width;
    image.height = picture.height;
    image.format = picture.alpha ? PNG_FORMAT_BGRA : PNG_FORMAT_BGR;
    if (!png_image_write_to_stdio(&image, file.stream(), 0, picture.bytes.data(), 0, nullptr)) {
        fail(file.name(), image);
    }
}

#else

Picture readPng(InputFile& file) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm");
}

void writePng(OutputFile& file, const Picture&) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm");
}

#endif

}  // namespace orva::tool
