// Chooses the table of kernels when the library is loaded.
#include "frame/active_kernels.hpp"

namespace orva {

namespace sse2 {
extern const Kernels kernels;
}

const Kernels* kernelsFor(InstructionSet set) {
    switch (set) {
    case InstructionSet::sse2:
        return &sse2::kernels;
    }
    return nullptr;
}

const char* nameOf(InstructionSet set) {
    switch (set) {
    case InstructionSet::sse2:
        return "SSE2";
    }
    return "";
}

constinit const Kernels* activeKernels = &sse2::kernels;

}  // namespace orva
