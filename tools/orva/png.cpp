// PNG files through libpng.
#include "png.hpp"

#include "failure.hpp"
#include "images.hpp"

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

Image readPng(InputFile& file) {
    PngImage png;
    if (!png_image_begin_read_from_stdio(&png, file.stream())) {
        fail(file.name(), png);
    }
    // Alpha is kept where there is any: without it, libpng would blend onto a background.
    const bool alpha = (png.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    png.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    Image image = createImage(alpha ? Format::RGB32I : Format::RGB24I, {png.width, png.height});
    const Plane rows = image.view().main;
    if (!png_image_finish_read(&png, nullptr, rows.bytes.data(),
                               static_cast<png_int_32>(rows.pitch), nullptr)) {
        fail(file.name(), png);
    }
    return image;
}

void writePng(OutputFile& file, const ConstImageView& image) {
    PngImage png;
    png.width = image.width;
    png.height = image.height;
    png.format = image.format == Format::RGB32I ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    if (!png_image_write_to_stdio(&png, file.stream(), 0, image.main.bytes.data(),
                                  static_cast<png_int_32>(image.main.pitch), nullptr)) {
        fail(file.name(), png);
    }
}

#else

Image readPng(InputFile& file) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm");
}

void writePng(OutputFile& file, const ConstImageView&) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm");
}

#endif

}  // namespace orva::tool
