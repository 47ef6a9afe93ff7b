// The list of cases and the layout of their frames.
#include "cases.hpp"

#include <initializer_list>

namespace bench {

std::string label(Size size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

const char* label(Family family) {
    switch (family) {
    case Family::yuvToBgr32:
        return "YCbCr to BGR32I";
    case Family::yuvToBgr24:
        return "YCbCr to BGR24I";
    case Family::bgr32ToYuv:
        return "BGR32I to YCbCr";
    case Family::bgr24ToYuv:
        return "BGR24I to YCbCr";
    case Family::matrix:
        return "matrix to matrix";
    case Family::move:
        return "copies, reorderings, splits, 32-bit repacking";
    case Family::repack24:
        return "24-bit repacking";
    case Family::mode:
        return "kernel modes";
    }
    return "";
}

std::string Case::name() const {
    std::string text(conversion->name);
    if (mode != 0)
        text += " mode " + std::to_string(mode);
    if (srcColorSpace != dstColorSpace)
        text += " matrix";
    return text;
}

Family Case::family() const {
    const golden::Format &source = conversion->source, &destination = conversion->destination;
    if (mode != 0)
        return Family::mode;
    if (destination.main == "A8P")
        return Family::move;
    if (source.isYuv() && destination.isYuv())
        return srcColorSpace == dstColorSpace ? Family::move : Family::matrix;
    if (source.isYuv())
        return destination.main == "BGR32I" ? Family::yuvToBgr32 : Family::yuvToBgr24;
    if (destination.isYuv())
        return source.main == "BGR32I" ? Family::bgr32ToYuv : Family::bgr24ToYuv;
    return source.main == destination.main ? Family::move : Family::repack24;
}

bool Case::computesColours() const {
    return family() != Family::move && family() != Family::repack24;
}

const golden::Export& exportNamed(std::string_view name) {
    return *std::ranges::find(golden::exports(), name, &golden::Export::name);
}

std::vector<Case> cases(std::string_view filter) {
    std::vector<Case> list;
    for (const golden::Export& conversion : golden::exports())
        list.push_back({&conversion});
    for (const golden::Export& conversion : golden::exports())
        if (conversion.source.isYuv() && conversion.destination.isYuv() &&
            !conversion.source.alphaPlane && !conversion.destination.alphaPlane)
            list.push_back({.conversion = &conversion, .srcColorSpace = 1});
    for (const char* name : {"UYVY16I_BGR32I", "Y8PUV8I_BGR32I"})
        for (const int32_t mode : {1, 2})
            list.push_back({&exportNamed(name), mode});
    for (const char* name : {"BGR32I_UYVY16I", "BGR32I_UVYY16I", "BGR32I_Y8PUV8I"})
        for (const int32_t mode : {1, 2, 3})
            list.push_back({&exportNamed(name), mode});
    std::erase_if(list, [&](const Case& c) { return c.name().find(filter) == std::string::npos; });
    return list;
}

Layout::Layout(const Case& c, Size size, const Options& options) {
    const auto [offset, streaming] = options;
    const golden::Format &source = c.conversion->source, &destination = c.conversion->destination;
    const bool reduces = c.mode == 1 || c.mode == 2, enlarges = c.mode == 3;
    const uint32_t factor = c.mode == 1 ? 2 : c.mode == 2 ? 4 : 1;
    const uint32_t columns = size.width / (enlarges ? 2 : factor);

    const Size from{enlarges ? columns : size.width, enlarges ? size.height / 2 : size.height};
    const Size to{enlarges ? size.width : columns, size.height / factor};
    // Reducing modes read packed pixels whatever their name says.
    const uint32_t srcPlanes = source.isSemiPlanar() && !reduces ? 2 : 1;
    const uint32_t dstPlanes = destination.isSemiPlanar() ? 2 : 1;
    const uint32_t srcPixel = source.isSemiPlanar() && reduces ? 2 : source.bytesPerPixel();
    const uint32_t dstPixel = destination.bytesPerPixel();

    Descriptor& d = descriptor;
    d.srcWidth = from.width;
    d.srcHeight = from.height;
    d.srcPitch = int32_t(from.width * srcPixel);
    d.srcPlane2Pitch = int32_t(from.width);
    d.dstWidth = columns;
    d.dstHeight = to.height;
    d.dstPitch = int32_t(to.width * dstPixel);
    d.dstRowGap = d.dstPitch - int32_t(columns * dstPixel);
    d.dstPlane2Pitch = int32_t(to.width);
    d.srcColorSpace = c.srcColorSpace;
    d.dstColorSpace = c.dstColorSpace;
    d.alphaValue = 255;
    d.kernelMode = c.mode;
    d.lineMode = reduces;
    d.streamingStores = streaming;

    // The lines of a pair run ahead of each other by up to 8.
    const size_t srcLines = from.height + (reduces ? 8 : 0);
    const bool alike = srcPixel == dstPixel;
    const size_t behind = offset ? 8 : 0;
    src = placed.place(srcLines * size_t(d.srcPitch) * srcPlanes, alike ? behind : 0);
    srcAlpha = placed.place(source.alphaPlane ? size_t(from.width) * from.height : 0, behind);
    dst = placed.place(size_t(to.height) * size_t(d.dstPitch) * dstPlanes, behind);
    dstAlpha = placed.place(destination.alphaPlane ? size_t(to.width) * to.height : 0, behind);

    const bool onlyAlpha = source.alphaPlane && destination.main == "A8P";
    const uint32_t read = (onlyAlpha ? 0 : srcPixel * srcPlanes) + source.alphaPlane;
    const uint32_t written = dstPixel * dstPlanes + destination.alphaPlane;
    placed.moved = size_t(from.width) * (reduces ? to.height : from.height) * read +
                   size_t(to.width) * to.height * written;
}

Descriptor Layout::at(uint8_t* memory) const {
    Descriptor d = descriptor;
    d.srcData = memory + src;
    d.srcPlane2Data = memory + srcAlpha;
    d.dstData = memory + dst;
    d.dstPlane2Data = memory + dstAlpha;
    return d;
}

}  // namespace bench
