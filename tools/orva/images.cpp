// The library's images and conversion, with failures in place of empty images and results.
#include "images.hpp"

#include "format_names.hpp"
#include "memory.hpp"
#include "refusals.hpp"

#include <utility>

namespace orva::tool {

std::string sizeText(FrameSize size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::string frameText(Format format, FrameSize size) {
    return nameOf(format) + " of " + sizeText(size);
}

void failTooLarge(Format format, FrameSize size) {
    throw Failure(frameText(format, size) + ": is too large for this machine's memory");
}

void requireMemory(Format format, FrameSize size) {
    if (frameBytes(format, size.width, size.height) > usableMemory() / 2) {
        failTooLarge(format, size);
    }
}

Image createImage(Format format, FrameSize size) {
    requireMemory(format, size);
    std::optional<Image> image = Image::create(format, size.width, size.height);
    if (!image) {
        failTooLarge(format, size);
    }
    return std::move(*image);
}

void convertImage(const ConstImageView& source, const ImageView& destination,
                  const Options& options) {
    if (const Result result = convert(source, destination, options); !result) {
        throw refusal(result);
    }
}

}  // namespace orva::tool
