// The kernels from YCbCr to RGB: a reader of samples, a source of fourth bytes, the transform and a
// writer of pixels, in all the combinations that exist.
#include "yuv_to_rgb/kernels.hpp"

#include "rgb/writers.hpp"
#include "yuv_to_rgb/readers.hpp"

namespace orva::ORVA_ISA {
namespace {

template <class Reader, class Fourth, class Math, class Writer> struct YuvToRgbJob {
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = Writer::colourBlock;
    static constexpr uint32_t streamedPixelBytes = Writer::streamedPixelBytes;

    Reader reader;
    Fourth fourth;
    Math math;
    Writer writer;

    ORVA_INLINE explicit YuvToRgbJob(const Descriptor& d)
        : reader(d), fourth(d), math(yuvToRgbCoefSetup(d)), writer(d) {}

    ORVA_INLINE uint32_t head() const { return writer.template head<unitPixels>(); }
    ORVA_INLINE uint8_t* streamed() const { return writer.streamed(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        if constexpr (blockPixels == 8) {
            writer.put(stores, convert8<V>());
        } else {
            const Pixels8<V> first = convert8<V>();
            const Pixels8<V> second = convert8<V>();
            writer.put(stores, Pixels16<V>{first.a, first.b, second.a, second.b});
        }
    }

    template <uint32_t count> ORVA_INLINE void units() {
        writer.template putPairs<count>(
            math(reader.template takePairs<count>(), fourth.template takePairs<count>()));
    }

    ORVA_INLINE void endRow() {
        reader.endRow();
        fourth.endRow();
        writer.endRow();
    }

private:
    template <class V> ORVA_INLINE Pixels8<V> convert8() {
        return math(reader.template take<V>(), fourth.template take<V>());
    }
};

template <class Reader, class Fourth, class Writer> struct Conversion {
    template <bool clamped> static void run(const Descriptor& d, Form form) {
        using Math = YuvToRgb<clamped, EvenLuma::wraps>;
        walkImage(YuvToRgbJob<Reader, Fourth, Math, Writer>(d), d, form);
    }
};

// A mode that reduces width and height by a factor, always by the general walk. Only rows below 8
// pixels are all head here.
template <uint32_t factor> struct Reduction {
    using Reader = ReducingReader<factor>;
    using Fourth = FourthWordsOfPairs;

    template <bool clamped> static void run(const Descriptor& d, Form form) {
        YuvToRgbJob<Reader, Fourth, YuvToRgb<clamped, EvenLuma::isSigned>, Bgr32Writer> job(d);
        walkAnyWidth(job, lineAddresses(d).rowCount, d.dstWidth, form.streaming, 8);
    }
};

template <class Reader, class Fourth>
constexpr Kernel toBgr32 = clamping<Conversion<Reader, Fourth, Bgr32Writer>>;

template <class Reader>
constexpr Kernel toBgr24 = clamping<Conversion<Reader, NoFourthWords, Bgr24Writer>>;

// The modes of the semi-planar export read a single packed plane, as UYVY16I's do; the header says
// so.
template <class Reader>
constexpr ModeTable toBgr32WithModes{
    {toBgr32<Reader, FourthWordsFromConstant>, clamping<Reduction<2>>, clamping<Reduction<4>>}};

}  // namespace

extern const YuvToRgbKernels yuvToRgbKernels;
constinit const YuvToRgbKernels yuvToRgbKernels{
    .uyvyToBgr32 = toBgr32WithModes<PackedReader<Uyvy>>,
    .semiPlanarToBgr32 = toBgr32WithModes<SemiPlanarReader>,
    .yuyvToBgr32 = toBgr32<PackedReader<Yuyv>, FourthWordsFromConstant>,
    .uyvyA8pToBgr32 = toBgr32<PackedReader<Uyvy>, FourthWordsFromPlane>,
    .yuyvA8pToBgr32 = toBgr32<PackedReader<Yuyv>, FourthWordsFromPlane>,
    .semiPlanarA8pToBgr32 = toBgr32<SemiPlanarReader, FourthWordsFromPlane>,
    .uyvyToBgr24 = toBgr24<PackedReader<Uyvy>>,
    .yuyvToBgr24 = toBgr24<PackedReader<Yuyv>>,
    .uvyyToBgr24 = toBgr24<PackedReader<Uvyy>>,
    .semiPlanarToBgr24 = toBgr24<SemiPlanarReader>,
};

}  // namespace orva::ORVA_ISA
