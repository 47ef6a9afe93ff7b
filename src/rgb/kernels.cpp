// Copying BGR and repacking it between 3 and 4 bytes per pixel.
#include "rgb/kernels.hpp"

#include "frame/move.hpp"
#include "rgb/repack.hpp"

namespace orva::ORVA_ISA {
namespace {

template <class Format> struct Copy {
    template <bool fast, class Stores> static void run(const Descriptor& d) {
        // The general BGR32I copy has always loaded its blocks aligned; the header says so.
        constexpr bool aligned = fast || std::is_same_v<Format, Bgr32Pixels>;
        using Loads = std::conditional_t<aligned, AlignedLoads, UnalignedLoads>;
        MoveJob<Format, Unchanged, Loads> job(d);
        __builtin_prefetch(d.srcData);
        walkRows<fast, Stores>(job, d.srcHeight, d.dstWidth);
    }
};

}  // namespace

extern const RgbKernels rgbKernels;
constinit const RgbKernels rgbKernels{
    .bgr32ToBgr32 = kernelSet<Copy<Bgr32Pixels>>,
    .bgr32ToBgr24 = kernelSet<Repack<Bgr32Reader, Bgr24Writer>>,
    .bgr24ToBgr32 = kernelSet<Repack<Bgr24WithFourth<ConstantAlpha>, Bgr32Writer>>,
    .bgr24ToBgr24 = kernelSet<Copy<Bgr24Pixels>>,
};

}  // namespace orva::ORVA_ISA
