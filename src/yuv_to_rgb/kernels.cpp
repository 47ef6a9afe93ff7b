// The kernels from YCbCr to RGB: a reader of samples, a source of fourth bytes, the transform and a
// writer of pixels, in all the combinations that exist.
#include "yuv_to_rgb/kernels.hpp"

#include "frame/row_walk.hpp"
#include "yuv_to_rgb/readers.hpp"
#include "yuv_to_rgb/writers.hpp"

namespace orva::ORVA_ISA {
namespace {

template <class Reader, class Fourth, class Math, class Writer> struct Job {
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = Writer::blockPixels;

    Reader reader;
    Fourth fourth;
    Math math;
    Writer writer;

    ORVA_INLINE explicit Job(const Descriptor& d)
        : reader(d), fourth(d), math(yuvToRgbCoefSetup(d)), writer(d) {}

    ORVA_INLINE uint32_t head() const { return writer.head(); }
    ORVA_INLINE bool streamable() const { return writer.streamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks() {
        writer.template put<V, Stores>(math(reader.template take<V>(), fourth.template take<V>()));
    }

    template <class Stores> ORVA_INLINE void unit() {
        writer.putPair(math(reader.takePair(), fourth.takePair()).first);
    }

    ORVA_INLINE void endRow() {
        reader.endRow();
        fourth.endRow();
        writer.endRow();
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
