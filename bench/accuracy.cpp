// How far the arithmetic of colour conversions is from that of real numbers.
#include "competitors.hpp"
#include "report.hpp"
#include "text.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace bench {
namespace {

using Triple = std::array<double, 3>;  // B G R or Y Cb Cr
using Bytes = std::array<uint8_t*, 3>;

// Frames in which two values of a triple count up along rows and columns, each in both pixels of a
// pair, and the third stands still.
constexpr Size size{512, 256};

Bytes channels(const golden::Format& format, void* data, int32_t pitch, uint32_t x, uint32_t y) {
    uint8_t* const plane = static_cast<uint8_t*>(data);
    uint8_t* const row = plane + y * ptrdiff_t(pitch);
    if (format.main == "BGR32I")
        return {row + 4 * x, row + 4 * x + 1, row + 4 * x + 2};
    if (format.main == "UYVY16I")
        return {row + 2 * x + 1, row + x / 2 * 4, row + x / 2 * 4 + 2};
    uint8_t* const chroma = row + size.height * ptrdiff_t(pitch) + (x & ~1u);
    return {row + x, chroma, chroma + 1};
}

struct Matrix {
    double red, blue;
    explicit Matrix(int32_t code) : red(code == 1 ? .299 : .2126), blue(code == 1 ? .114 : .0722) {}
    double green() const { return 1 - red - blue; }

    Triple toBgr(const Triple& ycc) const {
        const double y = (ycc[0] - 16) / 219, cb = (ycc[1] - 128) / 112, cr = (ycc[2] - 128) / 112;
        const double b = y + (1 - blue) * cb, r = y + (1 - red) * cr;
        Triple bgr{b, (y - blue * b - red * r) / green(), r};
        for (double& value : bgr)
            value = std::clamp(value * 255, 0., 255.);
        return bgr;
    }
    Triple toYcc(const Triple& bgr) const {
        const double y = (blue * bgr[0] + green() * bgr[1] + red * bgr[2]) / 255;
        return {16 + 219 * y, 128 + 112 * (bgr[0] / 255 - y) / (1 - blue),
                128 + 112 * (bgr[2] / 255 - y) / (1 - red)};
    }
};

struct Errors {
    Triple everywhere{}, studio{};
};

void note(Errors& errors, const Triple& exact, const Bytes& measured, bool studio) {
    for (size_t i = 0; i < 3; ++i) {
        const double error = std::abs(exact[i] - *measured[i]);
        errors.everywhere[i] = std::max(errors.everywhere[i], error);
        if (studio)
            errors.studio[i] = std::max(errors.studio[i], error);
    }
}

Errors errorsOf(const Case& c, const std::function<void(const Descriptor&)>& convert) {
    const golden::Format &source = c.conversion->source, &destination = c.conversion->destination;
    const Layout layout(c, size, {});
    std::vector<uint8_t> memory(layout.frame().bytes() + 64);
    uint8_t* const aligned = memory.data() + (64 - reinterpret_cast<uintptr_t>(memory.data()) % 64);
    const Descriptor d = layout.at(aligned);
    const Matrix matrix(c.dstColorSpace);
    const bool toBgr = source.isYuv();

    Errors errors;
    const auto within = [](double value, double high) { return value >= 16 && value <= high; };
    for (uint32_t third = 0; third < 256; ++third) {
        const auto triple = [&](uint32_t x, uint32_t y) { return std::array{x / 2, y, third}; };
        for (uint32_t y = 0; y < size.height; ++y)
            for (uint32_t x = 0; x < size.width; ++x)
                for (size_t i = 0; i < 3; ++i)
                    *channels(source, const_cast<void*>(d.srcData), d.srcPitch, x, y)[i] =
                        uint8_t(triple(x, y)[i]);
        convert(d);
        for (uint32_t y = 0; y < size.height; ++y)
            for (uint32_t x = 0; x < size.width; x += 2) {
                const auto in = triple(x, y);
                const Triple value{double(in[0]), double(in[1]), double(in[2])};
                const Triple exact = toBgr ? matrix.toBgr(value) : matrix.toYcc(value);
                const bool studio = !toBgr || (within(value[0], 235) && within(value[1], 240) &&
                                               within(value[2], 240));
                for (const uint32_t pixel : {x, x + 1})
                    note(errors, exact, channels(destination, d.dstData, d.dstPitch, pixel, y),
                         studio);
            }
    }
    return errors;
}

}  // namespace

void writeAccuracy(std::ostream& out) {
    out << "Largest differences from exact values, in levels (0.5 is perfect rounding), over all\n"
           "triples of bytes and over those of studio range (Y 16..235, Cb and Cr 16..240);\n"
           "channels are B, G, R or Y, Cb, Cr. Without clampStudio, ORVA's luma wraps below 16.\n\n"
           "| conversion | matrix | library | studio range | all bytes |\n|---|---|---|---|---|\n";
    for (const char* name : {"UYVY16I_BGR32I", "Y8PUV8I_BGR32I", "BGR32I_UYVY16I"}) {
        for (const int32_t code : {1, 0}) {
            const Case c{
                .conversion = &exportNamed(name), .srcColorSpace = code, .dstColorSpace = code};
            std::vector<Peer> all{
                {"ORVA", false, [] {}, [&](const Descriptor& d) { c.conversion->call(&d); }}};
            for (const auto& peers : {libyuvPeers(c), swscalePeers(c)})
                if (!peers.empty() && (code == 1 || !peers.front().onlyBt601))
                    all.push_back(peers.front());
            for (const Peer& peer : all) {
                peer.prepare();
                const auto [bytes, studio] = errorsOf(c, peer.convert);
                out << text("| %s | BT.%d | %s | %.2f %.2f %.2f | %.2f %.2f %.2f |\n", name,
                            code == 1 ? 601 : 709, peer.name.c_str(), studio[0], studio[1],
                            studio[2], bytes[0], bytes[1], bytes[2]);
            }
        }
    }
}

}  // namespace bench
