// The descriptor of one call.
//
// Pitches never move a row: they select kernels and place chroma planes. So rows go where the row
// gaps put them, and the pitches say which kernel is wanted, except where they place a plane.
#include "call.hpp"

namespace orva {

void callExport(Export function, const Region& region, const OrvaConversionDescriptor& options,
                Kernel kernel, std::uint32_t alphaAdvance) {
    const auto& [source, destination, width, height] = region;
    const std::ptrdiff_t rows = static_cast<std::ptrdiff_t>(height);
    const FormatInfo& sourceInfo = formatInfo(source.format);
    const FormatInfo& destinationInfo = formatInfo(destination.format);

    // The source's chroma begins at srcPitch * srcHeight.
    if (sourceInfo.chromaPlane && source.chromaDistance % rows != 0) {
        for (std::uint32_t row = 0; row < height; ++row) {
            callExport(function, region.rows(row, 1), options, kernel, alphaAdvance);
        }
        return;
    }

    // 0 is a multiple of everything and 1 of nothing that a test asks for.
    const std::int32_t wish = kernel == Kernel::fast ? 0 : 1;
    const auto gap = [](std::ptrdiff_t pitch, std::uint32_t bytes) {
        return static_cast<std::int32_t>(pitch - static_cast<std::ptrdiff_t>(bytes));
    };

    OrvaConversionDescriptor descriptor = options;
    descriptor.srcData = source.main.first;
    descriptor.srcWidth = width;
    descriptor.srcHeight = height;
    descriptor.srcPitch =
        sourceInfo.chromaPlane ? static_cast<std::int32_t>(source.chromaDistance / rows) : wish;
    descriptor.srcRowGap = gap(source.main.pitch, width * sourceInfo.bytesPerPixel);
    descriptor.srcPlane2Data = source.alpha.first;
    descriptor.srcPlane2RowGap = gap(source.alpha.pitch, alphaAdvance);
    descriptor.dstData = destination.main.first;
    descriptor.dstWidth = width;
    descriptor.dstHeight = height;
    descriptor.dstPitch = wish;
    if (destinationInfo.chromaPlane) {
        // The destination's begins at dstPitch * dstHeight, and no row moves by either.
        descriptor.dstPitch = static_cast<std::int32_t>(destination.main.pitch);
        descriptor.dstHeight =
            static_cast<std::uint32_t>(destination.chromaDistance / destination.main.pitch);
    }
    descriptor.dstRowGap = gap(destination.main.pitch, width * destinationInfo.bytesPerPixel);
    descriptor.dstPlane2Data = destination.alpha.first;
    descriptor.dstPlane2RowGap = gap(destination.alpha.pitch, width);
    function(&descriptor);
}

}  // namespace orva
