// Chooses the table of kernels when the library is loaded.
#include "frame/active_kernels.hpp"

namespace orva {

#define DECLARE(isa, name, isSupported)                                                            \
    namespace isa {                                                                                \
    extern const Kernels kernels;                                                                  \
    }
ORVA_INSTRUCTION_SETS(DECLARE)

#define ROW(isa, name, isSupported) {name, &isa::kernels, isSupported},
constexpr Tables<Kernels> kernelTables = {ORVA_INSTRUCTION_SETS(ROW)};

constinit const Kernels* activeKernels = kernelTables[0].kernels;

[[gnu::constructor]] static void chooseKernels() { activeKernels = newestSupported(kernelTables); }

}  // namespace orva
