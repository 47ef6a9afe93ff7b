// What an export chooses from: kernels, the four of a conversion, and tables of modes.
#pragma once

#include <orva/orva.h>

namespace orva {

using Descriptor = OrvaConversionDescriptor;

// One way of doing a conversion, over the whole image of a descriptor.
using Kernel = void (*)(const Descriptor&);

// The kernels of one conversion, with ordinary and with streaming stores. Descriptors that pass the
// export's test of alignment get the fast kernel where there is one, all others the general one.
struct KernelSet {
    Kernel aligned;
    Kernel alignedStreaming;
    Kernel general;
    Kernel generalStreaming;

    Kernel choose(bool isAligned, const Descriptor& d) const {
        if (isAligned)
            return d.streamingStores ? alignedStreaming : aligned;
        return d.streamingStores ? generalStreaming : general;
    }
};

// The kernels of an export that looks at kernelMode, one set per mode. A mode without kernels is a
// set of null pointers, and calling it is the caller's fault.
struct ModeTable {
    static constexpr uint32_t modes = 5;
    KernelSet mode[modes];

    Kernel choose(bool isAligned, const Descriptor& d) const {
        const uint32_t column = uint32_t(d.kernelMode);
        return mode[column < modes ? column : 0].choose(isAligned, d);
    }
};

}  // namespace orva
