// The kernels from YCbCr to RGB: a reader of samples, a source of fourth bytes, the transform and a
// writer of pixels, in all the combinations that exist.
#include "yuv_to_rgb/kernels.hpp"

#include "rgb/writers.hpp"
#include "yuv_to_rgb/readers.hpp"

namespace orva::ORVA_ISA {
namespace {

template <class Reader, class Fourth, class Math, class Writer> struct Job {
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = Writer::colourBlock;

    Reader reader;
    Fourth fourth;
    Math math;
    Writer writer;

    ORVA_INLINE explicit Job(const Descriptor& d)
        : reader(d), fourth(d), math(yuvToRgbCoefSetup(d)), writer(d) {}

    ORVA_INLINE uint32_t head() const { return writer.template head<unitPixels>(); }
    ORVA_INLINE bool streamable() const { return writer.streamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks() {
        if constexpr (blockPixels == 8) {
            writer.template put<Stores>(convert8<V>());
        } else {
            const Pixels8<V> first = convert8<V>();
            const Pixels8<V> second = convert8<V>();
            writer.template put<Stores>(Pixels16<V>{first.a, first.b, second.a, second.b});
        }
    }

    template <class Stores> ORVA_INLINE void unit() {
        writer.putPair(math(reader.takePair(), fourth.takePair()).a);
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
    template <bool fast, class Stores> static void run(const Descriptor& d) {
        if (d.clampStudio)
            walkRows<fast, Stores>(Job<Reader, Fourth, YuvToRgb<true>, Writer>(d), d.srcHeight,
                                   d.dstWidth);
        else
            walkRows<fast, Stores>(Job<Reader, Fourth, YuvToRgb<false>, Writer>(d), d.srcHeight,
                                   d.dstWidth);
    }
};

template <class Reader, class Fourth>
constexpr KernelSet toBgr32 = kernelSet<Conversion<Reader, Fourth, Bgr32Writer>>;

}  // namespace

extern const YuvToRgbKernels yuvToRgbKernels;
constinit const YuvToRgbKernels yuvToRgbKernels{
    .uyvyToBgr32 = {{toBgr32<PackedReader<Uyvy>, ConstantFourth>}},
    .yuyvToBgr32 = toBgr32<PackedReader<Yuyv>, ConstantFourth>,
    .uyvyA8pToBgr32 = toBgr32<PackedReader<Uyvy>, PlaneFourth>,
    .yuyvA8pToBgr32 = toBgr32<PackedReader<Yuyv>, PlaneFourth>,
};

}  // namespace orva::ORVA_ISA
