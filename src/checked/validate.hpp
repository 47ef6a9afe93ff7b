// The checks of a conversion's arguments.
#pragma once

#include <orva/convert.hpp>

namespace orva {

// The first row of a plane that has passed the checks.
template <class Byte> Byte* firstRow(const BasicPlane<Byte>& plane, std::uint32_t height) noexcept {
    const std::ptrdiff_t above = static_cast<std::ptrdiff_t>(height) - 1;
    return plane.bytes.data() + (plane.pitch < 0 && above > 0 ? above * -plane.pitch : 0);
}

// Success means that every row of every plane lies within its span and in no row of another plane
// that is written, unless both are the same.
Result validate(const ConstImageView& source, const ConstImageView& destination,
                const Options& options, const RowRange& rows) noexcept;

}  // namespace orva
