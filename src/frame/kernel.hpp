// What an export calls: the kernel of a conversion, or of one of its modes.
#pragma once

#include <orva/orva.h>

namespace orva {

using Descriptor = OrvaConversionDescriptor;

// How a kernel goes over an image. Where it has a fast walk, descriptors that pass the export's
// test of alignment get that; all others get the general one.
struct Form {
    bool fast, streaming;
};

// A conversion of the whole image of a descriptor.
using Kernel = void (*)(const Descriptor&, Form);

// The kernels of an export that looks at kernelMode, one per mode. A mode without a kernel is a
// null pointer, and calling it is the caller's fault.
struct ModeTable {
    static constexpr uint32_t modes = 5;
    Kernel mode[modes];

    Kernel of(const Descriptor& d) const {
        const uint32_t column = uint32_t(d.kernelMode);
        return mode[column < modes ? column : 0];
    }
};

}  // namespace orva
