// What formats store.
#pragma once

#include <orva/convert.hpp>

namespace orva::picture {

// The table of formats, in the order of their numbers.
inline constexpr uint32_t formatCount = 22;
extern const OrvaFormatInfo formatTable[formatCount];

inline const OrvaFormatInfo& infoOf(Format format) {
    return formatTable[static_cast<uint32_t>(format)];
}

}  // namespace orva::picture
