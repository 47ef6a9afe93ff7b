// Chooses the engine's table when the library is loaded.
#include "picture/active_kernels.hpp"

#include "picture/passes.hpp"

namespace orva {

#define DECLARE(isa, name, isSupported)                                                            \
    namespace isa {                                                                                \
    extern const picture::Kernels pictureKernels;                                                  \
    }
ORVA_INSTRUCTION_SETS(DECLARE)

namespace picture {

#define ROW(isa, name, isSupported) {name, &isa::pictureKernels, isSupported},
constexpr Tables<Kernels> tables = {ORVA_INSTRUCTION_SETS(ROW)};

constinit const Kernels* activeKernels = tables[0].kernels;

[[gnu::constructor]] static void chooseKernels() { activeKernels = newestSupported(tables); }

}  // namespace picture
}  // namespace orva
