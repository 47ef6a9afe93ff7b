// Which passes lead from one format to another.
#include "picture/plan.hpp"

#include "picture/formats.hpp"

#include <string_view>

namespace orva::picture {
namespace {

const OrvaFormatInfo& colourOf(Format format) { return formatTable[infoOf(format).colour]; }

Format formatOf(const OrvaFormatInfo& info) { return Format(info.format); }

Layout layoutOf(Format colour) {
    switch (colour) {
    case Format::UYVY16I:
        return uyvy;
    case Format::YUYV16I:
        return yuyv;
    case Format::UVYY16I:
        return uvyy;
    case Format::Y8PUV8I:
        return semiPlanar8;
    case Format::Y8PU8PV8P:
        return planar8;
    case Format::Y10PUV10I:
        return semiPlanar10;
    case Format::Y10PU10PV10P:
        return planar10;
    case Format::V210:
        return v210;
    default:  // no other format is YCbCr
        __builtin_unreachable();
    }
}

// The samples of a packed pair, second luma "w", or of a pixel in memory order. Pixels of 3 bytes
// have their alpha, if they get any, behind them.
std::string_view lettersOf(Format colour) {
    switch (colour) {
    case Format::UYVY16I:
        return "uyvw";
    case Format::YUYV16I:
        return "yuwv";
    case Format::UVYY16I:
        return "uvyw";
    case Format::BGR32I:
    case Format::BGR24I:
        return "bgra";
    case Format::RGB32I:
    case Format::RGB24I:
        return "rgba";
    case Format::ARGB32I:
        return "argb";
    case Format::ABGR32I:
        return "abgr";
    default:
        return {};
    }
}

bool isPacked(Layout layout) { return layout <= uvyy; }

Shape shapeOf(const OrvaFormatInfo& colour) {
    Shape shape = {};
    for (size_t i = 0; i < planeCount; ++i)
        shape.planes[i] = colour.planes[i];
    if (colour.model != ORVA_MODEL_YCBCR || formatOf(colour) == Format::V210)
        return shape;
    const std::string_view letters = lettersOf(formatOf(colour));
    shape.lumaBytes = colour.bits > 8 ? 2 : 1;
    for (size_t i = 0; i < 2; ++i)
        shape.lumaOfPair[i] =
            uint8_t(letters.empty() ? i * shape.lumaBytes : letters.find("yw"[i]));
    return shape;
}

// One side of a conversion between formats of colour.
struct Side {
    const OrvaFormatInfo& info;
    Matrix matrix;
    Range range;

    Layout layout() const { return layoutOf(formatOf(info)); }
    Coding coding() const { return {matrix, range, int(info.bits)}; }
    std::string_view letters() const { return lettersOf(formatOf(info)); }
    bool isRgb() const { return info.model == ORVA_MODEL_RGB; }
    bool hasPixels32() const { return isRgb() && info.planes[mainPlane].unitBytes == 4; }
    PixelKind pixelKind() const {
        return !hasPixels32() ? noAlpha : order().alpha == 0 ? alphaFirst : alphaLast;
    }
    PixelOrder order() const {
        const auto at = [this](char name) { return static_cast<uint8_t>(letters().find(name)); };
        return {at('b'), at('g'), at('r'), at('a')};
    }
};

// throughPixels: alpha goes from a plane into pixels or from pixels to a plane, and so through the
// passes.
class Planner {
public:
    Planner(const Side& source, const Side& destination, bool throughPixels, const Options& options,
            const Kernels& kernels)
        : source(source), destination(destination), throughPixels(throughPixels), kernels(kernels),
          chroma(static_cast<size_t>(options.chroma)), cosited(options.chroma == Chroma::cosited) {}

    Plan colour() {
        if (source.isRgb() && destination.isRgb())
            betweenRgb();
        else if (source.isRgb())
            fromRgb();
        else if (destination.isRgb())
            toRgb();
        else if (source.matrix != destination.matrix || source.range != destination.range)
            computeYcbcr();
        else
            moveYcbcr();
        return plan;
    }

private:
    void betweenRgb() {
        orderBytes();
        if (source.info.format == destination.info.format)
            plan.copiesColour = true;
        else
            plan.finish =
                kernels.repack[source.hasPixels32()][destination.hasPixels32()][throughPixels];
    }

    void fromRgb() {
        plan.constants.fromPixels = fromPixels(source.order(), destination.coding());
        plan.compute =
            kernels.fromPixels[source.pixelKind()][chroma][destination.layout()][throughPixels];
        packIfV210();
        plan.readsNeighbours = cosited;
    }

    void toRgb() {
        unpackIfV210();
        plan.constants.toPixels = toPixels(source.coding(), destination.order());
        plan.compute =
            kernels.toPixels[source.layout()][chroma][destination.pixelKind()][throughPixels];
        plan.readsNeighbours = cosited;
    }

    // Studio codes of 10 bits are 4 times those of 8, which is how passes have them anyway.
    void moveYcbcr() {
        const Layout from = source.layout(), to = destination.layout();
        const uint32_t fromBits = source.info.bits, toBits = destination.info.bits;
        if (from == to) {
            plan.copiesColour = true;
        } else if (toBits == 10 && (fromBits == 10 || source.range == Range::studio)) {
            unpackIfV210();
            plan.compute = kernels.toTenBits[from][to];
            packIfV210();
        } else if (fromBits != toBits) {
            computeYcbcr();
        } else if (isPacked(from) && isPacked(to)) {
            plan.finish = kernels.reorderPairs;
            orderBytes();
        } else {
            plan.finish = kernels.move[from][to];
        }
    }

    void computeYcbcr() {
        unpackIfV210();
        plan.constants.toSamples = toSamples(source.coding(), destination.coding());
        plan.compute = kernels.toYcbcr[source.layout()][chroma][destination.layout()];
        packIfV210();
        plan.readsNeighbours = cosited;
    }

    void unpackIfV210() {
        if (source.layout() == v210)
            plan.prepare = kernels.unpackV210;
    }

    void packIfV210() {
        if (destination.layout() == v210) {
            plan.finish = kernels.packV210;
        }
    }

    void orderBytes() {
        for (size_t i = 0; i < 4; ++i)
            plan.constants.order[i] =
                static_cast<uint8_t>(source.letters().find(destination.letters()[i]));
    }

    const Side& source;
    const Side& destination;
    const bool throughPixels;
    const Kernels& kernels;
    size_t chroma;
    bool cosited;
    Plan plan;
};

bool isYcbcr(const OrvaFormatInfo& info) { return info.model == ORVA_MODEL_YCBCR; }
bool hasAlphaPlane(const OrvaFormatInfo& info) {
    return formatOf(info) == Format::A8P || info.planes[alphaPlane].unitBytes > 0;
}
bool hasAlphaInPixels(const OrvaFormatInfo& info) {
    return info.model == ORVA_MODEL_RGB && info.hasAlpha && !hasAlphaPlane(info);
}

}  // namespace

Plan makePlan(Format from, Format to, const Options& options, const Kernels& kernels) {
    const OrvaFormatInfo &fromInfo = infoOf(from), &toInfo = infoOf(to);
    const Side source{colourOf(from), options.srcMatrix, options.srcRange};
    const Side destination{colourOf(to), options.dstMatrix, options.dstRange};
    const bool intoPixels = hasAlphaPlane(fromInfo) && hasAlphaInPixels(toInfo);
    const bool outOfPixels = hasAlphaInPixels(fromInfo) && hasAlphaPlane(toInfo);

    Plan plan;
    if (toInfo.model != ORVA_MODEL_ALPHA) {
        plan = Planner(source, destination, intoPixels || outOfPixels, options, kernels).colour();
        plan.source = shapeOf(source.info);
        plan.destination = shapeOf(destination.info);
    } else if (outOfPixels) {
        plan.finish = kernels.extractAlpha[source.pixelKind() == alphaFirst];
        plan.source = shapeOf(source.info);
    }
    if (intoPixels)
        plan.source.planes[alphaPlane] = {1, 1};
    if (outOfPixels)
        plan.destination.planes[alphaPlane] = {1, 1};
    else if (hasAlphaPlane(toInfo))
        plan.alpha = hasAlphaPlane(fromInfo) ? AlphaStep::copy : AlphaStep::fill;

    plan.toV210 = to == Format::V210;
    // Six pixels are a unit of V210. Blocks are 2^n pixels, so three of them are whole units.
    const bool hasV210 = plan.toV210 || from == Format::V210;
    plan.granularity = kernels.block * (hasV210 ? 3 : 1);
    plan.unitPixels = hasV210 ? 6 : isYcbcr(source.info) || isYcbcr(destination.info) ? 2 : 1;
    plan.constants.alpha = static_cast<uint8_t>(options.alpha);
    return plan;
}

}  // namespace orva::picture
