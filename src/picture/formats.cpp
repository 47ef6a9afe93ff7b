// The table of formats.
#include "picture/formats.hpp"

#include <array>

namespace orva::picture {
namespace {

constexpr PlaneInfo none{}, alphaBytes{1, 1};

using Planes = std::array<PlaneInfo, planeCount>;

// Planes in the order of PlaneIndex.
constexpr Planes noPlanes{};
constexpr Planes alphaPlaneAlone{{alphaBytes}};
constexpr Planes packed{{{4, 2}, none, none, none}};
constexpr Planes semiPlanar8{{{2, 2}, {2, 2}, none, none}};
constexpr Planes planar8{{{2, 2}, {1, 2}, {1, 2}, none}};
constexpr Planes semiPlanar10{{{4, 2}, {4, 2}, none, none}};
constexpr Planes planar10{{{4, 2}, {2, 2}, {2, 2}, none}};
constexpr Planes sixPixels{{{16, 6}, none, none, none}};
constexpr Planes pixels32{{{4, 1}, none, none, none}};
constexpr Planes pixels24{{{3, 1}, none, none, none}};

enum Alpha : bool { opaque, hasAlpha };

constexpr OrvaFormatInfo entry(Format format, Model model, uint32_t bits, Alpha alpha,
                               const Planes& planes, const char* name,
                               const char* otherNames = "") {
    OrvaFormatInfo info{};
    info.structSize = sizeof info;
    info.format = info.colour = static_cast<OrvaFormat>(format);
    info.model = static_cast<uint32_t>(model);
    info.bits = bits;
    info.hasAlpha = alpha;
    for (size_t i = 0; i < planeCount; ++i)
        info.planes[i] = planes[i];
    info.name = name;
    info.otherNames = otherNames;
    return info;
}

constexpr OrvaFormatInfo rgb(Format format, Alpha alpha, const Planes& planes, const char* name,
                             const char* otherNames) {
    return entry(format, Model::rgb, 8, alpha, planes, name, otherNames);
}

constexpr OrvaFormatInfo ycbcr(Format format, uint32_t bits, const Planes& planes, const char* name,
                               const char* otherNames = "") {
    return entry(format, Model::ycbcr, bits, opaque, planes, name, otherNames);
}

// The format with an alpha plane beside it.
constexpr OrvaFormatInfo withAlpha(const OrvaFormatInfo& colour, Format format, const char* name,
                                   const char* otherNames = "") {
    OrvaFormatInfo info = colour;
    info.format = static_cast<OrvaFormat>(format);
    info.hasAlpha = hasAlpha;
    info.planes[alphaPlane] = alphaBytes;
    info.name = name;
    info.otherNames = otherNames;
    return info;
}

constexpr OrvaFormatInfo uyvy =
    ycbcr(Format::UYVY16I, 8, packed, "UYVY16I", "uyvy422 uyvy 2vuy hdyc");
constexpr OrvaFormatInfo yuyv = ycbcr(Format::YUYV16I, 8, packed, "YUYV16I", "yuyv422 yuyv yuy2");
constexpr OrvaFormatInfo uvyy = ycbcr(Format::UVYY16I, 8, packed, "UVYY16I");
constexpr OrvaFormatInfo nv16 = ycbcr(Format::Y8PUV8I, 8, semiPlanar8, "Y8PUV8I", "nv16");
constexpr OrvaFormatInfo bgr24 = rgb(Format::BGR24I, opaque, pixels24, "BGR24I", "bgr24 bgr");
constexpr OrvaFormatInfo rgb24 = rgb(Format::RGB24I, opaque, pixels24, "RGB24I", "rgb24 rgb");

}  // namespace

constinit const OrvaFormatInfo formatTable[formatCount] = {
    uyvy,
    yuyv,
    uvyy,
    nv16,
    rgb(Format::BGR32I, hasAlpha, pixels32, "BGR32I", "bgra bgrx bgr0"),
    bgr24,
    entry(Format::A8P, Model::alpha, 8, hasAlpha, alphaPlaneAlone, "A8P", "gray gray8"),
    withAlpha(uyvy, Format::UYVY16IA8P, "UYVY16IA8P", "uyva"),
    withAlpha(yuyv, Format::YUYV16IA8P, "YUYV16IA8P"),
    withAlpha(uvyy, Format::UVYY16IA8P, "UVYY16IA8P"),
    withAlpha(nv16, Format::Y8PUV8IA8P, "Y8PUV8IA8P"),
    withAlpha(bgr24, Format::BGR24IA8P, "BGR24IA8P"),
    entry(Format::A8C, Model::alpha, 8, hasAlpha, noPlanes, "A8C"),
    rgb24,
    rgb(Format::RGB32I, hasAlpha, pixels32, "RGB32I", "rgba rgbx rgb0"),
    rgb(Format::ARGB32I, hasAlpha, pixels32, "ARGB32I", "argb xrgb 0rgb"),
    rgb(Format::ABGR32I, hasAlpha, pixels32, "ABGR32I", "abgr xbgr 0bgr"),
    ycbcr(Format::Y8PU8PV8P, 8, planar8, "Y8PU8PV8P", "yuv422p i422 y42b"),
    ycbcr(Format::V210, 10, sixPixels, "V210"),
    ycbcr(Format::Y10PUV10I, 10, semiPlanar10, "Y10PUV10I", "p210le p210"),
    ycbcr(Format::Y10PU10PV10P, 10, planar10, "Y10PU10PV10P", "yuv422p10le yuv422p10 i422-10le"),
    withAlpha(rgb24, Format::RGB24IA8P, "RGB24IA8P"),
};

}  // namespace orva::picture
