// The kernels between YCbCr layouts: copy, reordering and split of bytes, and the matrix
// conversion.
#include "yuv_to_yuv/kernels.hpp"

#include "frame/move.hpp"
#include "yuv_to_yuv/matrix_job.hpp"
#include "yuv_to_yuv/split_job.hpp"

namespace orva::ORVA_ISA {
namespace {

constexpr KernelSet copy = kernelSet<Move<PackedPairs, Unchanged, UnalignedLoads>>;

constexpr KernelSet withGeneralOf(KernelSet fast, const KernelSet& general) {
    fast.general = general.general;
    fast.generalStreaming = general.generalStreaming;
    return fast;
}

}  // namespace

extern const YuvToYuvKernels yuvToYuvKernels;
constinit const YuvToYuvKernels yuvToYuvKernels{
    .copy = copy,
    // Loads its source aligned; the header says what callers therefore owe.
    .byteSwap = kernelSet<Move<PackedPairs, BytesOfWordsSwapped, AlignedLoads>>,
    // Between UYVY16I and UVYY16I, either way. Only the fast kernels reorder; the general ones are
    // the plain copy, and hosts compare bytes.
    .middleSwap =
        withGeneralOf(kernelSet<Move<PackedPairs, MiddleBytesSwapped, UnalignedLoads>>, copy),
    .split = kernelSet<Split<Uyvy>>,
    .uyvyMatrix = kernelSet<Clamping<Matrix<Uyvy, Uyvy>>>,
    .yuyvMatrix = kernelSet<Clamping<Matrix<Yuyv, Yuyv>>>,
    .uyvyToYuyvMatrix = kernelSet<Clamping<Matrix<Uyvy, Yuyv>>>,
    .yuyvToUyvyMatrix = kernelSet<Clamping<Matrix<Yuyv, Uyvy>>>,
};

}  // namespace orva::ORVA_ISA
