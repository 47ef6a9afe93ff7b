// The list of pairs and the layout of their images.
#include "pairs.hpp"

namespace bench {

using orva::alphaPlane, orva::FormatInfo, orva::Model, orva::PlaneIndex;

std::string Pair::name() const {
    std::string name(orva::formatInfo(source).name);
    name += "_";
    name += orva::formatInfo(destination).name;
    return name + (matrix ? " matrix" : "");
}

std::optional<Case> Pair::exported() const {
    const std::string plain = Pair{source, destination}.name();
    const auto found = std::ranges::find(golden::exports(), plain, &golden::Export::name);
    if (found == golden::exports().end())
        return std::nullopt;
    return Case{.conversion = &*found, .dstColorSpace = matrix};
}

std::vector<Pair> pairs(std::string_view filter) {
    const auto isYuv = [](orva::Format format) {
        return orva::formatInfo(format).model == Model::ycbcr;
    };
    std::vector<Pair> list;
    for (const auto& [source, destination] : orva::conversions())
        list.push_back({source, destination});
    for (const auto& [source, destination] : orva::conversions())
        if (isYuv(source) && isYuv(destination))
            list.push_back({source, destination, true});
    std::erase_if(list, [&](const Pair& p) { return p.name().find(filter) == std::string::npos; });
    return list;
}

namespace {

constexpr std::array everyPlane{orva::mainPlane, orva::chromaPlane, orva::crPlane, alphaPlane};

bool has(const FormatInfo& format, PlaneIndex plane) { return format.planes[plane].unitBytes > 0; }

// Pixels: at multiples of it a unit begins in every plane.
uint32_t unit(const FormatInfo& format) {
    return std::ranges::max(format.planes, {}, &orva::PlaneInfo::unitPixels).unitPixels;
}

// The first column of a frame that a crop can begin at and the frame does not.
uint32_t left(const FormatInfo& format, Form form) { return form == Form::crop ? unit(format) : 0; }

Size sizeOf(const FormatInfo& source, const FormatInfo& destination, Size whole, Form form) {
    const uint32_t cut = std::max({uint32_t(2), unit(source), unit(destination)});
    return {whole.width - (form == Form::crop ? cut : 0), whole.height};
}

// Of alpha planes and colours, only what the other side wants is read.
bool isRead(const FormatInfo& source, const FormatInfo& destination, PlaneIndex plane) {
    if (plane == alphaPlane)
        return destination.hasAlpha;
    return destination.model != Model::alpha || !has(source, alphaPlane);
}

}  // namespace

ImageLayout::PlacedImage ImageLayout::place(const FormatInfo& format, Size whole, Size size,
                                            Form form) {
    const size_t behindPage = form == Form::odd ? 1 : 0;
    const auto row = [&](PlaneIndex plane) {
        return size_t(orva::rowBytes(format.format, plane, whole.width));
    };
    size_t colourRow = 0;
    for (const PlaneIndex plane : everyPlane)
        colourRow += plane == alphaPlane ? 0 : row(plane);

    PlacedImage image{format.format, size};
    size_t begin = placed.place(colourRow * size.height, behindPage);
    for (const PlaneIndex plane : everyPlane) {
        if (!has(format, plane))
            continue;
        const size_t bytes = row(plane) * size.height;
        if (plane == alphaPlane)
            begin = placed.place(bytes, behindPage);
        const size_t cropped = size_t(orva::rowBytes(format.format, plane, left(format, form)));
        image.planes[plane] = {begin + cropped, bytes - cropped, ptrdiff_t(row(plane))};
        begin += bytes;
    }
    return image;
}

ImageLayout::ImageLayout(const Pair& pair, Size whole, Form form) {
    const FormatInfo &source = orva::formatInfo(pair.source),
                     &destination = orva::formatInfo(pair.destination);
    const Size size = sizeOf(source, destination, whole, form);
    from = place(source, whole, size, form);
    to = place(destination, whole, size, form);
    for (const PlaneIndex plane : everyPlane) {
        if (isRead(source, destination, plane))
            placed.moved += size_t(orva::rowBytes(pair.source, plane, size.width)) * size.height;
        placed.moved += size_t(orva::rowBytes(pair.destination, plane, size.width)) * size.height;
    }
}

orva::ImageView ImageLayout::PlacedImage::at(uint8_t* memory) const {
    orva::ImageView view{format, size.width, size.height, {}, {}, {}, {}};
    for (const PlaneIndex plane : everyPlane)
        if (const auto& [begin, bytes, pitch] = planes[plane]; bytes > 0)
            orva::planeOf(view, plane) = {{reinterpret_cast<std::byte*>(memory + begin), bytes},
                                          pitch};
    return view;
}

}  // namespace bench
