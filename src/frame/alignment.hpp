// The tests by which exports choose the fast kernel: a few low bits of a few fields.
//
// Each looks at what its family has always looked at, no more: most never see the source, and none
// sees an alpha plane. The header states what callers therefore owe.
#pragma once

#include "frame/kernel.hpp"

namespace orva::aligned {

inline bool to(uint32_t multiple, const void* address) {
    return reinterpret_cast<uintptr_t>(address) % multiple == 0;
}
// Pitches are taken as unsigned. It only shows with 48, of which -64 is a multiple and -48 is not.
inline bool to(uint32_t multiple, int32_t pitch) { return uint32_t(pitch) % multiple == 0; }
inline bool to(uint32_t multiple, uint32_t width) { return width % multiple == 0; }

inline bool alphaPlane(const Descriptor& d) {
    return to(16, d.dstData) && to(32, d.dstPitch) && to(32, d.dstWidth);
}

inline bool destination(const Descriptor& d) {
    return to(16, d.dstData) && to(16, d.dstPitch) && to(16, d.dstWidth);
}

inline bool bgr24Destination(const Descriptor& d) {
    return to(16, d.dstData) && to(48, d.dstPitch) && to(16, d.dstWidth);
}

// Tests the colour plane twice instead of looking at the alpha plane.
inline bool bgr24AndAlphaDestination(const Descriptor& d) {
    return bgr24Destination(d) && destination(d);
}

inline bool bgr24ToYuv(const Descriptor& d) {
    return to(16, d.dstData) && to(16, d.dstPitch) && to(8, d.dstWidth);
}

inline bool packedToBgr32(const Descriptor& d) {
    return to(16, d.srcData) && to(16, d.srcPitch) && to(16, d.dstData) && to(32, d.dstPitch) &&
           to(8, d.dstWidth);
}

// Of all exports with a mode table as well, whichever side is BGR.
inline bool bgr32ToYuv(const Descriptor& d) {
    return to(16, d.srcData) && to(32, d.srcPitch) && to(16, d.dstData) && to(16, d.dstPitch) &&
           to(8, d.dstWidth);
}

}  // namespace orva::aligned
