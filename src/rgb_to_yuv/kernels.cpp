// The kernels from RGB to YCbCr: a reader of pixels, the transform, a writer of samples and a place
// for the fourth bytes, in all the combinations that exist.
#include "rgb_to_yuv/kernels.hpp"

#include <type_traits>

#include "rgb/readers.hpp"
#include "rgb_to_yuv/enlarging_writers.hpp"
#include "rgb_to_yuv/writers.hpp"

namespace orva::ORVA_ISA {
namespace {

template <class Reader, class Math, class Writer, class Fourth> struct RgbToYuvJob {
    static constexpr uint32_t unitPixels = 2;
    static constexpr uint32_t blockPixels = 8;
    static constexpr uint32_t streamedPixelBytes = Writer::streamedPixelBytes;

    Reader reader;
    Math math;
    Writer writer;
    Fourth fourth;

    ORVA_INLINE explicit RgbToYuvJob(const Descriptor& d)
        : reader(d), math(rgbToYuvConstants(d)), writer(d), fourth(d) {}

    ORVA_INLINE uint32_t head() const { return writer.head(); }
    ORVA_INLINE uint8_t* streamed() const { return writer.streamed(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        const Pixels8<V> pixels = reader.template take8<V>();
        writer.put(stores, math(pixels));
        fourth.put(pixels);
    }

    template <uint32_t count> ORVA_INLINE void units() {
        const Pixels8<Vec128> pixels = reader.template takePairs<count>();
        writer.template putPairs<count>(math(pixels));
        fourth.template putPairs<count>(pixels);
    }

    ORVA_INLINE void endRow() {
        reader.endRow();
        writer.endRow();
        fourth.endRow();
    }
};

template <class Source, class Writer, class Fourth> struct Conversion {
    using Reader = std::conditional_t<Writer::isSemiPlanar, FetchingAhead<Source>, Source>;

    template <bool clamped> static void run(const Descriptor& d, Form form) {
        walkImage(RgbToYuvJob<Reader, RgbToYuv<clamped>, Writer, Fourth>(d), d, form);
    }
};

// The modes, always by the general walk: those that reduce width and height by a factor, and the
// enlarging one, which has the source's rows and width.
template <uint32_t factor, class Writer> struct Reduction {
    using Reader = ReducingBgr32Reader<factor>;

    template <bool clamped> static void run(const Descriptor& d, Form form) {
        RgbToYuvJob<Reader, RgbToYuv<clamped>, Writer, FourthDropped> job(d);
        walkAnyWidth(job, lineAddresses(d).rowCount, d.dstWidth, form.streaming);
    }
};

template <class Writer> struct Enlargement {
    template <bool clamped> static void run(const Descriptor& d, Form form) {
        Conversion<Bgr32Reader, Writer, FourthDropped>::template run<clamped>(
            d, {.fast = false, .streaming = form.streaming});
    }
};

// What BGR24I to UVYY16I does instead where it streams and its test of alignment passes, since
// hosts compare bytes: 16 bytes for each 8 pixels as usual, but in them the luma of the first 4,
// unbounded, as words, and 4 words of the luma offset.
class ReducedJob {
public:
    static constexpr uint32_t blockPixels = 8;
    static constexpr uint32_t streamedPixelBytes = 2;

    ORVA_INLINE explicit ReducedJob(const Descriptor& d)
        : reader(d), math(rgbToYuvConstants(d)),
          offset(Wide::all32(rgbToYuvConstants(d).lumaOffset)), dst(mainDestination(d)) {}

    ORVA_INLINE uint8_t* streamed() const { return dst.ifStreamable(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        const Pixels8<V> pixels = reader.take8<V>();
        const V firstFours = evenLanes(pixels.a, pixels.b);
        stores.put(packWords(math.luma(firstFours), constant<V>(offset)), dst);
        dst += V::bytes;
    }

    ORVA_INLINE void endRow() {
        reader.endRow();
        dst.endRow();
    }

private:
    Bgr24Reader reader;
    RgbToYuv<false> math;
    Constant offset;
    DestinationPointer dst;
};

template <class Writer, class Fourth = FourthDropped>
constexpr Kernel fromBgr32 = clamping<Conversion<Bgr32Reader, Writer, Fourth>>;

template <class Writer, class EnlargingWriter>
constexpr ModeTable fromBgr32WithModes{{fromBgr32<Writer>, clamping<Reduction<2, Writer>>,
                                        clamping<Reduction<4, Writer>>,
                                        clamping<Enlargement<EnlargingWriter>>}};

template <class Writer>
constexpr Kernel fromBgr24 = clamping<Conversion<Bgr24Reader, Writer, FourthDropped>>;

void bgr24ToUvyy(const Descriptor& d, Form form) {
    if (form.fast && form.streaming) {
        ReducedJob job(d);
        walkWholeBlocks(job, d, form.streaming);
    } else {
        fromBgr24<PackedWriter<Uvyy>>(d, form);
    }
}

}  // namespace

extern const RgbToYuvKernels rgbToYuvKernels;
constinit const RgbToYuvKernels rgbToYuvKernels{
    .bgr32ToUyvy = fromBgr32WithModes<PackedWriter<Uyvy>, EnlargingPackedWriter<Uyvy>>,
    .bgr32ToUvyy = fromBgr32WithModes<PackedWriter<Uvyy>, EnlargingPackedWriter<Uvyy>>,
    .bgr32ToSemiPlanar = fromBgr32WithModes<SemiPlanarWriter, EnlargingSemiPlanarWriter>,
    .bgr32ToYuyv = fromBgr32<PackedWriter<Yuyv>>,
    .bgr32ToYuyvA8p = fromBgr32<PackedWriter<Yuyv>, FourthToPlane>,
    .bgr32ToUyvyA8p = fromBgr32<PackedWriter<Uyvy>, FourthToPlane>,
    .bgr32ToUvyyA8p = fromBgr32<PackedWriter<Uvyy>, FourthToPlane>,
    .bgr32ToSemiPlanarA8p = fromBgr32<SemiPlanarWriter, FourthToPlane>,
    .bgr24ToYuyv = fromBgr24<PackedWriter<Yuyv>>,
    .bgr24ToUyvy = fromBgr24<PackedWriter<Uyvy>>,
    .bgr24ToUvyy = bgr24ToUvyy,
    .bgr24ToSemiPlanar = fromBgr24<SemiPlanarWriter>,
};

}  // namespace orva::ORVA_ISA
