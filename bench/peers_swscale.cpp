// swscale's conversions of the same size: no accurate rounding, one thread, its fastest scaler or
// the one that it takes by itself.
#include "pair_competitors.hpp"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace bench {
namespace {

AVPixelFormat formatOf(std::string_view name) {
    return name == "UYVY16I"   ? AV_PIX_FMT_UYVY422
           : name == "YUYV16I" ? AV_PIX_FMT_YUYV422
           : name == "Y8PUV8I" ? AV_PIX_FMT_NV16
           : name == "BGR32I"  ? AV_PIX_FMT_BGRA
           : name == "BGR24I"  ? AV_PIX_FMT_BGR24
           // By name, because older headers do not have it.
           : name == "Y10PUV10I" ? av_get_pix_fmt("p210le")
                                 : AV_PIX_FMT_NONE;
}

bool supports(AVPixelFormat source, AVPixelFormat destination) {
    return sws_isSupportedInput(source) && sws_isSupportedOutput(destination);
}

template <class Byte> struct Planes {
    Byte* first[4];
    int pitches[4];
};

class Converter {
public:
    // Colour codes as in descriptors.
    Converter(AVPixelFormat source, AVPixelFormat destination, int32_t srcCode, int32_t dstCode,
              int scaler)
        : source(source), destination(destination), srcCode(srcCode), dstCode(dstCode),
          scaler(scaler) {
        av_log_set_level(AV_LOG_QUIET);
    }
    ~Converter() { sws_freeContext(context); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    void convert(int width, int height, const Planes<const uint8_t>& from,
                 const Planes<uint8_t>& to) {
        if (!context)
            setUp(width, height);
        sws_scale(context, from.first, from.pitches, 0, height, to.first, to.pitches);
    }

private:
    // Every object converts pictures of one size.
    void setUp(int width, int height) {
        const auto matrix = [](int32_t code) {
            return sws_getCoefficients(code == 1 ? SWS_CS_ITU601 : SWS_CS_ITU709);
        };
        const bool isYuv = source != AV_PIX_FMT_BGRA && source != AV_PIX_FMT_BGR24;
        const bool toYuv = destination != AV_PIX_FMT_BGRA && destination != AV_PIX_FMT_BGR24;
        // The one code that counts between YCbCr and BGR is the destination's.
        const int32_t code = isYuv && toYuv ? srcCode : dstCode;
        context = sws_getContext(width, height, source, width, height, destination, scaler, nullptr,
                                 nullptr, nullptr);
        sws_setColorspaceDetails(context, matrix(code), 0, matrix(dstCode), 0, 0, 1 << 16, 1 << 16);
    }

    AVPixelFormat source, destination;
    int32_t srcCode, dstCode;
    int scaler;
    SwsContext* context = nullptr;
};

template <class Byte> auto planesOf(const orva::BasicImageView<Byte>& image) {
    using Plain = std::conditional_t<std::is_const_v<Byte>, const uint8_t, uint8_t>;
    const auto first = [](const orva::BasicPlane<Byte>& plane) {
        return reinterpret_cast<Plain*>(plane.bytes.data());
    };
    return Planes<Plain>{{first(image.main), first(image.chroma), first(image.cr)},
                         {int(image.main.pitch), int(image.chroma.pitch), int(image.cr.pitch)}};
}

}  // namespace

std::vector<Peer> swscalePeers(const Case& c) {
    const golden::Format &from = c.conversion->source, &to = c.conversion->destination;
    const AVPixelFormat source = formatOf(from.main), destination = formatOf(to.main);
    if (c.mode != 0 || from.alphaPlane || to.alphaPlane || !supports(source, destination))
        return {};
    const auto converter = std::make_shared<Converter>(source, destination, c.srcColorSpace,
                                                       c.dstColorSpace, SWS_FAST_BILINEAR);
    const auto convert = [converter](const Descriptor& d) {
        const auto* const from = static_cast<const uint8_t*>(d.srcData);
        auto* const to = static_cast<uint8_t*>(d.dstData);
        converter->convert(
            int(d.dstWidth), int(d.srcHeight),
            {{from, from + ptrdiff_t(d.srcPitch) * d.srcHeight}, {d.srcPitch, d.srcPitch}},
            {{to, to + ptrdiff_t(d.dstPitch) * d.dstHeight}, {d.dstPitch, d.dstPitch}});
    };
    return {{swscaleName, false, [] {}, convert}};
}

std::vector<PairPeer> swscalePeers(const Pair& pair) {
    const AVPixelFormat source = formatOf(orva::formatInfo(pair.source).name),
                        destination = formatOf(orva::formatInfo(pair.destination).name);
    if (!supports(source, destination))
        return {};
    std::vector<PairPeer> peers;
    for (const auto& [name, scaler] :
         {std::pair(swscaleName, SWS_FAST_BILINEAR), std::pair(swscaleDefaultName, SWS_BICUBIC)}) {
        const auto converter =
            std::make_shared<Converter>(source, destination, 0, pair.matrix, scaler);
        peers.push_back(
            {name, [converter](const orva::ConstImageView& from, const orva::ImageView& to) {
                 converter->convert(int(to.width), int(to.height), planesOf(from), planesOf(to));
             }});
    }
    return peers;
}

}  // namespace bench
