// Pictures: which file format, and to its order of bytes.
#include "picture.hpp"

#include "failure.hpp"
#include "format_names.hpp"
#include "png.hpp"
#include "pnm.hpp"

#include <utility>

namespace orva::tool {
namespace {

Format storedFormat(FileKind kind, Format format) {
    if (format == Format::A8P) {
        return Format::A8P;
    }
    const bool alpha = kind != FileKind::ppm && formatInfo(format).hasAlpha;
    return alpha ? Format::RGB32I : Format::RGB24I;
}

}  // namespace

void requirePictureFormat(FileKind kind, const std::string& name, Format format) {
    const bool grey = format == Format::A8P;
    const std::string formatName = nameOf(format);
    if (!grey && formatInfo(format).model != Model::rgb) {
        throw Failure(name + ": pictures hold formats of RGB, and A8P as grey, not " + formatName);
    }
    if (kind == FileKind::pgm && !grey) {
        throw Failure(name + ": PGM holds grey, which is A8P here, not " + formatName);
    }
    if (kind == FileKind::ppm && grey) {
        throw Failure(name + ": PPM holds RGB; .pgm, .pam and .png hold A8P, as grey");
    }
}

Image readPicture(FileKind kind, InputFile& file) {
    return kind == FileKind::png ? readPng(file) : readPnm(file);
}

void writePicture(FileKind kind, MemoryFile& file, const ConstImageView& image) {
    const auto write = kind == FileKind::png   ? writePng
                       : kind == FileKind::pam ? writePam
                       : kind == FileKind::pgm ? writePgm
                                               : writePpm;
    const Format stored = storedFormat(kind, image.format);
    if (stored == image.format) {
        write(file, image);
        return;
    }
    Image picture = createImage(stored, {image.width, image.height});
    convertImage(image, picture.view());
    write(file, std::as_const(picture).view());
}

std::uint64_t pictureMemory(FileKind kind, Format format, FrameSize size) {
    const Format stored = storedFormat(kind, format);
    const std::uint64_t bytes = frameBytes(stored, size.width, size.height);
    return stored == format ? bytes : 2 * bytes;
}

}  // namespace orva::tool
