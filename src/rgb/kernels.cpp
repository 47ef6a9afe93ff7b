// Copying BGR and repacking it between 3 and 4 bytes per pixel. The BGR32I copy loads its blocks
// aligned; the header says what callers therefore owe.
#include "rgb/kernels.hpp"

#include "frame/move.hpp"
#include "rgb/repack.hpp"

namespace orva::ORVA_ISA {
extern const RgbKernels rgbKernels;
constinit const RgbKernels rgbKernels{
    .bgr32ToBgr32 = move<Bgr32Pixels, Unchanged, AlignedLoads>,
    .bgr32ToBgr24 = repack<Bgr32Reader, Bgr24Writer>,
    .bgr24ToBgr32 = repack<Bgr24WithFourth<FourthFromConstant>, Bgr32Writer>,
    .bgr24ToBgr24 = move<Bgr24Pixels, Unchanged, UnalignedLoads>,
};

}  // namespace orva::ORVA_ISA
