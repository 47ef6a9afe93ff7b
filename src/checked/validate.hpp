// The checks that depend on the two images and the options alone, not on which kernels run.
#pragma once

#include <orva/convert.hpp>

namespace orva {

// Beyond this a row gap might not fit its 32-bit field.
inline constexpr std::uint64_t maximumPitch = std::uint64_t{1} << 30;

// The chroma plane of a semi-planar source is placed by a pitch field; a single row needs the whole
// distance in it.
inline constexpr std::uint64_t maximumChromaDistance = INT32_MAX;

// The first row of a plane that has passed the checks.
template <class Byte> Byte* firstRow(const BasicPlane<Byte>& plane, std::uint32_t height) noexcept {
    const std::ptrdiff_t above = static_cast<std::ptrdiff_t>(height) - 1;
    return plane.bytes.data() + (plane.pitch < 0 ? above * -plane.pitch : 0);
}

// Success means that every row of every plane lies within its span and in no row of another plane.
Result validate(const ConstImageView& source, const ConstImageView& destination,
                const Options& options, const RowRange& rows) noexcept;

}  // namespace orva
