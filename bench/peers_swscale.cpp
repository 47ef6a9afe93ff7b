// swscale's conversions of the same size: its fastest scaler, no accurate rounding, one thread.
#include "competitors.hpp"

extern "C" {
#include <libavutil/log.h>
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
                               : AV_PIX_FMT_NONE;
}

class Converter {
public:
    Converter(AVPixelFormat source, AVPixelFormat destination)
        : source(source), destination(destination) {}
    ~Converter() { sws_freeContext(context); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    void convert(const Descriptor& d) {
        if (!context)
            setUp(d);
        const auto* const from = static_cast<const uint8_t*>(d.srcData);
        auto* const to = static_cast<uint8_t*>(d.dstData);
        const uint8_t* const fromPlanes[4] = {from, from + ptrdiff_t(d.srcPitch) * d.srcHeight};
        uint8_t* const toPlanes[4] = {to, to + ptrdiff_t(d.dstPitch) * d.dstHeight};
        const int fromPitches[4] = {d.srcPitch, d.srcPitch};
        const int toPitches[4] = {d.dstPitch, d.dstPitch};
        sws_scale(context, fromPlanes, fromPitches, 0, int(d.srcHeight), toPlanes, toPitches);
    }

private:
    // Every object converts pictures of one size and matrix.
    void setUp(const Descriptor& d) {
        const auto matrix = [](int32_t code) {
            return sws_getCoefficients(code == 1 ? SWS_CS_ITU601 : SWS_CS_ITU709);
        };
        const int width = int(d.dstWidth), height = int(d.srcHeight);
        const bool isYuv = source != AV_PIX_FMT_BGRA && source != AV_PIX_FMT_BGR24;
        const bool toYuv = destination != AV_PIX_FMT_BGRA && destination != AV_PIX_FMT_BGR24;
        // The one code that counts between YCbCr and BGR is the destination's.
        const int32_t code = isYuv && toYuv ? d.srcColorSpace : d.dstColorSpace;
        context = sws_getContext(width, height, source, width, height, destination,
                                 SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
        sws_setColorspaceDetails(context, matrix(code), 0, matrix(d.dstColorSpace), 0, 0, 1 << 16,
                                 1 << 16);
    }

    AVPixelFormat source, destination;
    SwsContext* context = nullptr;
};

}  // namespace

std::vector<Peer> swscalePeers(const Case& c) {
    const test::Format &from = c.conversion->source, &to = c.conversion->destination;
    const AVPixelFormat source = formatOf(from.main), destination = formatOf(to.main);
    if (c.mode != 0 || from.alphaPlane || to.alphaPlane || !sws_isSupportedInput(source) ||
        !sws_isSupportedOutput(destination))
        return {};
    av_log_set_level(AV_LOG_QUIET);
    const auto converter = std::make_shared<Converter>(source, destination);
    return {
        {swscaleName, false, [] {}, [converter](const Descriptor& d) { converter->convert(d); }}};
}

}  // namespace bench
