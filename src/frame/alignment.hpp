// The tests by which exports choose the fast kernel: a few low bits of a few fields.
//
// None may look at more, because some bytes depend on the kernel and hosts compare bytes: most
// never see the source, and none sees an alpha plane beside an image. The header states what
// callers therefore owe.
#pragma once

#include "frame/kernel.hpp"

namespace orva::aligned {

inline bool to(uint32_t multiple, const void* address) {
    return reinterpret_cast<uintptr_t>(address) % multiple == 0;
}
// Pitches are taken as unsigned. It only shows with 48, of which -64 is a multiple and -48 is not.
inline bool to(uint32_t multiple, int32_t pitch) { return uint32_t(pitch) % multiple == 0; }
inline bool to(uint32_t multiple, uint32_t width) { return width % multiple == 0; }

// The destination's address to 16, its pitch and width to the multiples given.
template <uint32_t pitch, uint32_t width> inline bool dst(const Descriptor& d) {
    return to(16, d.dstData) && to(pitch, d.dstPitch) && to(width, d.dstWidth);
}

// The same of the destination, and of the source its address and pitch.
template <uint32_t srcPitch, uint32_t dstPitch, uint32_t width>
inline bool both(const Descriptor& d) {
    return to(16, d.srcData) && to(srcPitch, d.srcPitch) && dst<dstPitch, width>(d);
}

}  // namespace orva::aligned
