// From the standards' numbers to fixed point, in one place.
//
// Between YCbCr and RGB lies y, cb, cr of real numbers: y from 0 to 1, cb and cr from -0.5 to 0.5.
#include "picture/constants.hpp"

#include <utility>

namespace orva::picture {
namespace {

struct LumaWeights {
    double red, green, blue;
};

LumaWeights weightsOf(Matrix matrix) {
    const auto weights = [](double red, double blue) {
        return LumaWeights{red, 1 - red - blue, blue};
    };
    return matrix == Matrix::bt601   ? weights(0.299, 0.114)
           : matrix == Matrix::bt709 ? weights(0.2126, 0.0722)
                                     : weights(0.2627, 0.0593);
}

// Codes that make 1 in y, cb or cr, and the codes that mean 0.
struct Scale {
    double luma, chroma, black, grey;
};

Scale scaleOf(Range range, int bits) {
    const double unit = 1 << (bits - 8);
    if (range == Range::studio)
        return {219 * unit, 224 * unit, 16 * unit, 128 * unit};
    return {256 * unit - 1, 256 * unit - 1, 0, 128 * unit};
}

// Of the words that a pass computes with.
Scale wordScaleOf(const Coding& coding) {
    const Scale scale = scaleOf(coding.range, coding.bits);
    const double unit = 1 << (10 - coding.bits);
    return {scale.luma * unit, scale.chroma * unit * 2, scale.black * unit, 0};
}

int32_t rounded(double value) { return int32_t(value < 0 ? value - 0.5 : value + 0.5); }
int16_t fixed(double value, int fractionBits) {
    return int16_t(rounded(value * (1 << fractionBits)));
}

}  // namespace

ToPixels toPixels(const Coding& source, const PixelOrder& destination) {
    constexpr int bits = 16;
    const LumaWeights k = weightsOf(source.matrix);
    const Scale words = wordScaleOf(source);
    const auto chroma = [&](double gain) { return fixed(255 * gain / words.chroma, bits); };

    ToPixels c = {};
    c.luma = fixed(255 / words.luma, bits);
    c.blue = {chroma(2 * (1 - k.blue)), 0};
    c.green = {chroma(-2 * (1 - k.blue) * k.blue / k.green),
               chroma(-2 * (1 - k.red) * k.red / k.green)};
    c.red = {0, chroma(2 * (1 - k.red))};
    c.start = (1 << (bits - 1)) - rounded(words.black) * c.luma;
    // The passes make blue first.
    if (destination.redFirst())
        std::swap(c.blue, c.red);
    return c;
}

ToSamples toSamples(const Coding& source, const Coding& destination) {
    constexpr int lumaBits = 14, chromaBits = 15;
    const LumaWeights from = weightsOf(source.matrix), to = weightsOf(destination.matrix);
    const Scale words = wordScaleOf(source), codes = scaleOf(destination.range, destination.bits);

    // R, G and B of a chroma sample with y = 0, and from those the other matrix's y, cb and cr.
    struct Ycc {
        double y, cb, cr;
    };
    const auto through = [&](double cb, double cr) {
        const double red = 2 * (1 - from.red) * cr, blue = 2 * (1 - from.blue) * cb;
        const double green = -(from.red * red + from.blue * blue) / from.green;
        const double y = to.red * red + to.green * green + to.blue * blue;
        return Ycc{y, (blue - y) / (2 * (1 - to.blue)), (red - y) / (2 * (1 - to.red))};
    };
    const Ycc ofCb = through(1, 0), ofCr = through(0, 1);
    const auto luma = [&](double y) { return fixed(codes.luma * y / words.chroma, lumaBits); };
    const auto chroma = [&](double c) {
        return fixed(codes.chroma * c / words.chroma, chromaBits);
    };

    ToSamples c = {};
    c.luma = fixed(codes.luma / words.luma, lumaBits);
    c.toLuma = {luma(ofCb.y), luma(ofCr.y)};
    c.toCb = {chroma(ofCb.cb), chroma(ofCr.cb)};
    c.toCr = {chroma(ofCb.cr), chroma(ofCr.cr)};
    c.lumaStart =
        (1 << (lumaBits - 1)) + (rounded(codes.black) << lumaBits) - rounded(words.black) * c.luma;
    c.chromaStart = (1 << (chromaBits - 1)) + (rounded(codes.grey) << chromaBits);
    return c;
}

FromPixels fromPixels(const PixelOrder& source, const Coding& destination) {
    constexpr int chromaBits = 13;
    const int lumaBits = destination.bits == 8 ? 15 : 13;
    const LumaWeights k = weightsOf(destination.matrix);
    const Scale codes = scaleOf(destination.range, destination.bits);

    // Green takes what rounding leaves of the sum, so that grey keeps its chroma and white its
    // luma.
    const auto weights = [&](double blue, double red, double sum, int bits) {
        const int16_t b = fixed(blue, bits), r = fixed(red, bits);
        PixelWeights w = {};
        w.byte[source.blue] = b;
        w.byte[source.green] = int16_t(rounded(sum * (1 << bits)) - b - r);
        w.byte[source.red] = r;
        return w;
    };
    const double luma = codes.luma / 255, chroma = codes.chroma / 255;
    FromPixels c = {};
    c.luma = weights(luma * k.blue, luma * k.red, luma, lumaBits);
    c.cb = weights(chroma / 2, -chroma / 2 * k.red / (1 - k.blue), 0, chromaBits);
    c.cr = weights(-chroma / 2 * k.blue / (1 - k.red), chroma / 2, 0, chromaBits);
    // Passes double the bytes.
    c.lumaStart = (1 << lumaBits) + (rounded(codes.black) << (lumaBits + 1));
    c.chromaStart = (1 << 15) + (rounded(codes.grey) << 16);
    return c;
}

}  // namespace orva::picture
