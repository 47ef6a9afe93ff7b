// The running pointers of a descriptor's planes.
#pragma once

#include "frame/kernel.hpp"
#include "frame/memory_access.hpp"

namespace orva::ORVA_ISA {

// Moves over a row as its bytes are read or written, and by the plane's row gap at the row's end.
template <class Byte> class RunningPointer {
public:
    ORVA_INLINE RunningPointer(Byte* first, ptrdiff_t rowGap) : at(first), rowGap(rowGap) {}
    ORVA_INLINE RunningPointer(const RunningPointer&) = default;
    // Of the same plane.
    ORVA_INLINE RunningPointer& operator=(const RunningPointer& other) {
        at = other.at;
        return *this;
    }

    ORVA_INLINE operator Byte*() const { return at; }
    ORVA_INLINE void operator+=(ptrdiff_t bytes) { at += bytes; }
    ORVA_INLINE void endRow() { at += rowGap; }

    // Itself, or null where streaming stores would fault.
    ORVA_INLINE Byte* ifStreamable() const { return isAligned<16>(at) ? at : nullptr; }

    // Of the chroma plane that lies behind this luma plane and moves by the same gap.
    ORVA_INLINE RunningPointer chromaPlane(int32_t pitch, uint32_t height) const {
        return {at + ptrdiff_t(pitch) * ptrdiff_t(height), rowGap};
    }

private:
    Byte* at;
    ptrdiff_t rowGap;
};

using SourcePointer = RunningPointer<const uint8_t>;
using DestinationPointer = RunningPointer<uint8_t>;

ORVA_INLINE SourcePointer mainSource(const Descriptor& d) {
    __builtin_prefetch(d.srcData);
    return {static_cast<const uint8_t*>(d.srcData), d.srcRowGap};
}

ORVA_INLINE SourcePointer alphaSource(const Descriptor& d) {
    __builtin_prefetch(d.srcPlane2Data);
    return {static_cast<const uint8_t*>(d.srcPlane2Data), d.srcPlane2RowGap};
}

ORVA_INLINE DestinationPointer mainDestination(const Descriptor& d) {
    return {static_cast<uint8_t*>(d.dstData), d.dstRowGap};
}

ORVA_INLINE DestinationPointer alphaDestination(const Descriptor& d) {
    return {static_cast<uint8_t*>(d.dstPlane2Data), d.dstPlane2RowGap};
}

}  // namespace orva::ORVA_ISA
