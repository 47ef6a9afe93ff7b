// Byte access, narrowing, luma bounds and alignment tests of the scalar model.
#pragma once

#include <orva/orva.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace reference {

using Descriptor = OrvaConversionDescriptor;

// A running byte pointer that may be null or outside of every buffer as long as nothing is accessed
// through it: unused planes are null, and row gaps may step anywhere behind the last row.
template <typename Byte> class Cursor {
public:
    template <typename Any>
    explicit Cursor(Any* start) : address(reinterpret_cast<std::uintptr_t>(start)) {}

    Byte& operator[](std::int64_t offset) const {
        return *reinterpret_cast<Byte*>(address + static_cast<std::uintptr_t>(offset));
    }
    Cursor& operator+=(std::int64_t offset) {
        address += static_cast<std::uintptr_t>(offset);
        return *this;
    }
    Cursor operator+(std::int64_t offset) const { return Cursor(*this) += offset; }

    // Bytes up to the next 16-byte boundary, 0 on one.
    std::int64_t toBoundary() const { return static_cast<std::int64_t>((16 - address % 16) % 16); }

private:
    std::uintptr_t address;
};
using Source = Cursor<const std::uint8_t>;
using Destination = Cursor<std::uint8_t>;

inline std::int16_t saturate16(std::int32_t value) {
    return static_cast<std::int16_t>(std::clamp(value, -32768, 32767));
}
inline std::uint8_t saturate8(std::int32_t value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}
inline std::int16_t wrap16(std::int32_t value) { return static_cast<std::int16_t>(value); }

struct LumaBounds {
    int low, high;
    int clamp(int luma) const { return std::min(std::max(luma, low), high); }
};
inline LumaBounds lumaBounds(const Descriptor& d) {
    return d.clampStudio ? LumaBounds{16, 235} : LumaBounds{0, 255};
}

inline bool aligned(const void* data, std::int32_t pitch, std::uint32_t pitchMultiple,
                    std::uint32_t width, std::uint32_t widthMultiple) {
    return reinterpret_cast<std::uintptr_t>(data) % 16 == 0 &&
           static_cast<std::uint32_t>(pitch) % pitchMultiple == 0 && width % widthMultiple == 0;
}
inline bool sourceAligned(const Descriptor& d, std::uint32_t pitch, std::uint32_t width) {
    return aligned(d.srcData, d.srcPitch, pitch, d.dstWidth, width);
}
inline bool destinationAligned(const Descriptor& d, std::uint32_t pitch, std::uint32_t width) {
    return aligned(d.dstData, d.dstPitch, pitch, d.dstWidth, width);
}

}  // namespace reference
