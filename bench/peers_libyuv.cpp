// libyuv's functions for our conversions. Where it has no single function for a conversion that
// moves alpha planes as well, it takes two calls, as it would in a host.
#include "competitors.hpp"

#include <libyuv.h>

namespace bench {
namespace {

using Step = void (*)(const Descriptor&);

const uint8_t* from(const Descriptor& d) { return static_cast<const uint8_t*>(d.srcData); }
const uint8_t* fromAlpha(const Descriptor& d) {
    return static_cast<const uint8_t*>(d.srcPlane2Data);
}
uint8_t* to(const Descriptor& d) { return static_cast<uint8_t*>(d.dstData); }
uint8_t* toAlpha(const Descriptor& d) { return static_cast<uint8_t*>(d.dstPlane2Data); }
int width(const Descriptor& d) { return int(d.dstWidth); }
int height(const Descriptor& d) { return int(d.srcHeight); }

// One packed format to another.
template <auto function> void packed(const Descriptor& d) {
    function(from(d), d.srcPitch, to(d), d.dstPitch, width(d), height(d));
}

void copy(const Descriptor& d) {
    libyuv::CopyPlane(from(d), d.srcPitch, to(d), d.dstPitch, d.dstPitch, height(d));
}

// It knows semi-planar 4:2:0 only, of which each single row is 4:2:2.
template <auto function> void semiPlanar(const Descriptor& d) {
    const libyuv::YuvConstants* const matrix =
        d.dstColorSpace == 1 ? &libyuv::kYuvI601Constants : &libyuv::kYuvH709Constants;
    const uint8_t* const chroma = from(d) + ptrdiff_t(d.srcPitch) * height(d);
    for (int row = 0; row < height(d); ++row)
        function(from(d) + row * d.srcPitch, d.srcPitch, chroma + row * d.srcPitch, d.srcPitch,
                 to(d) + row * d.dstPitch, d.dstPitch, matrix, width(d), 1);
}

// A pixel pair is four bytes in another order.
template <uint8_t a, uint8_t b, uint8_t c, uint8_t e> void shuffle(const Descriptor& d) {
    static constexpr uint8_t order[] = {a,     b,     c,     e,     a + 4,  b + 4,  c + 4,  e + 4,
                                        a + 8, b + 8, c + 8, e + 8, a + 12, b + 12, c + 12, e + 12};
    libyuv::ARGBShuffle(from(d), d.srcPitch, to(d), d.dstPitch, order, width(d) / 2, height(d));
}

// Chroma and luma alternate like the samples of a chroma plane.
void split(const Descriptor& d) {
    uint8_t* const chroma = to(d) + ptrdiff_t(d.dstPitch) * ptrdiff_t(d.dstHeight);
    libyuv::SplitUVPlane(from(d), d.srcPitch, chroma, d.dstPitch, to(d), d.dstPitch, width(d),
                         height(d));
}

// The alpha planes of one side or both.
void fillAlpha(const Descriptor& d) {
    libyuv::SetPlane(toAlpha(d), d.dstPlane2Pitch, width(d), height(d), uint32_t(d.alphaValue));
}
void copyAlpha(const Descriptor& d) {
    libyuv::CopyPlane(fromAlpha(d), d.srcPlane2Pitch, toAlpha(d), d.dstPlane2Pitch, width(d),
                      height(d));
}
void splitOffAlpha(const Descriptor& d) {
    libyuv::ARGBExtractAlpha(from(d), d.srcPitch, toAlpha(d), d.dstPlane2Pitch, width(d),
                             height(d));
}
void mergeAlpha(const Descriptor& d) {
    libyuv::ARGBCopyYToAlpha(fromAlpha(d), d.srcPlane2Pitch, to(d), d.dstPitch, width(d),
                             height(d));
}
void takeAlpha(const Descriptor& d) {
    libyuv::CopyPlane(fromAlpha(d), d.srcPlane2Pitch, to(d), d.dstPitch, width(d), height(d));
}
void fill(const Descriptor& d) {
    libyuv::SetPlane(to(d), d.dstPitch, width(d), height(d), uint32_t(d.alphaValue));
}

struct Entry {
    std::string_view source, destination;
    Step step;
    bool onlyBt601 = false;
};

constexpr Entry entries[] = {
    {"UYVY16I", "BGR32I", packed<libyuv::UYVYToARGB>, true},
    {"YUYV16I", "BGR32I", packed<libyuv::YUY2ToARGB>, true},
    {"Y8PUV8I", "BGR32I", semiPlanar<libyuv::NV12ToARGBMatrix>},
    {"Y8PUV8I", "BGR24I", semiPlanar<libyuv::NV12ToRGB24Matrix>},
    {"BGR32I", "UYVY16I", packed<libyuv::ARGBToUYVY>, true},
    {"BGR32I", "YUYV16I", packed<libyuv::ARGBToYUY2>, true},
    {"BGR32I", "BGR32I", packed<libyuv::ARGBCopy>},
    {"BGR32I", "BGR24I", packed<libyuv::ARGBToRGB24>},
    {"BGR24I", "BGR32I", packed<libyuv::RGB24ToARGB>},
    {"BGR24I", "BGR24I", copy},
    {"UYVY16I", "UYVY16I", copy},
    {"YUYV16I", "YUYV16I", copy},
    {"UYVY16I", "YUYV16I", shuffle<1, 0, 3, 2>},
    {"YUYV16I", "UYVY16I", shuffle<1, 0, 3, 2>},
    {"UYVY16I", "UVYY16I", shuffle<0, 2, 1, 3>},
    {"UVYY16I", "UYVY16I", shuffle<0, 2, 1, 3>},
    {"UYVY16I", "Y8PUV8I", split},
    {"BGR32I", "A8P", packed<libyuv::ARGBExtractAlpha>},
    {"A8P", "A8P", copy},
    {"A8C", "A8P", fill},
};

// What is to be done besides the colours.
Step alphaStep(const golden::Format& source, const golden::Format& destination) {
    if (destination.alphaPlane)
        return source.alphaPlane ? copyAlpha : source.main == "BGR32I" ? splitOffAlpha : fillAlpha;
    return source.alphaPlane ? mergeAlpha : nullptr;
}

std::vector<Peer> peers(bool onlyBt601, const std::function<void(const Descriptor&)>& convert) {
    return {{libyuvName, onlyBt601, [] { libyuv::MaskCpuFlags(-1); }, convert},
            {libyuvSsse3Name, onlyBt601,
             [] {
                 libyuv::MaskCpuFlags(libyuv::kCpuHasX86 | libyuv::kCpuHasSSE2 |
                                      libyuv::kCpuHasSSSE3);
             },
             convert}};
}

}  // namespace

std::vector<Peer> libyuvPeers(const Case& c) {
    const golden::Format &source = c.conversion->source, &destination = c.conversion->destination;
    if (c.mode != 0 || c.family() == Family::matrix)
        return {};
    if (source.alphaPlane && destination.main == "A8P")
        return peers(false, takeAlpha);
    for (const Entry& entry : entries) {
        if (entry.source != source.main || entry.destination != destination.main)
            continue;
        const Step alpha = alphaStep(source, destination);
        if (!alpha)
            return peers(entry.onlyBt601, entry.step);
        return peers(entry.onlyBt601, [colours = entry.step, alpha](const Descriptor& d) {
            colours(d);
            alpha(d);
        });
    }
    return {};
}

}  // namespace bench
