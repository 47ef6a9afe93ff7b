// Copying BGR and repacking it between 3 and 4 bytes per pixel. The BGR32I copy loads its blocks
// aligned; the header says what callers therefore owe.
#include "rgb/kernels.hpp"

#include "frame/move.hpp"
#include "rgb/repack.hpp"

namespace orva::ORVA_ISA {
extern const RgbKernels rgbKernels;
constinit const RgbKernels rgbKernels{
    .bgr32ToBgr32 = kernelSet<Move<Bgr32Pixels, Unchanged, AlignedLoads>>,
    .bgr32ToBgr24 = kernelSet<Repack<Bgr32Reader, Bgr24Writer>>,
    .bgr24ToBgr32 = kernelSet<Repack<Bgr24WithFourth<FourthFromConstant>, Bgr32Writer>>,
    .bgr24ToBgr24 = kernelSet<Move<Bgr24Pixels, Unchanged, UnalignedLoads>>,
};

}  // namespace orva::ORVA_ISA
