// The kernels between YCbCr layouts: copy, reordering and split of bytes, and the matrix
// conversion.
#include "yuv_to_yuv/kernels.hpp"

#include "frame/move.hpp"
#include "yuv_to_yuv/matrix_job.hpp"
#include "yuv_to_yuv/split_job.hpp"

namespace orva::ORVA_ISA {
namespace {

constexpr Kernel copy = move<PackedPairs, Unchanged, UnalignedLoads>;

// Between UYVY16I and UVYY16I, either way. Only the fast kernel reorders; the general one is the
// plain copy, and hosts compare bytes.
void swapMiddles(const Descriptor& d, Form form) {
    const Kernel kernel = form.fast ? move<PackedPairs, MiddleBytesSwapped, UnalignedLoads> : copy;
    kernel(d, form);
}

}  // namespace

extern const YuvToYuvKernels yuvToYuvKernels;
constinit const YuvToYuvKernels yuvToYuvKernels{
    .copy = copy,
    // Loads its source aligned; the header says what callers therefore owe.
    .byteSwap = move<PackedPairs, BytesOfWordsSwapped, AlignedLoads>,
    .middleSwap = swapMiddles,
    .split = split<Uyvy>,
    .uyvyMatrix = clamping<Matrix<Uyvy, Uyvy>>,
    .yuyvMatrix = clamping<Matrix<Yuyv, Yuyv>>,
    .uyvyToYuyvMatrix = clamping<Matrix<Uyvy, Yuyv>>,
    .yuyvToUyvyMatrix = clamping<Matrix<Yuyv, Uyvy>>,
};

}  // namespace orva::ORVA_ISA
