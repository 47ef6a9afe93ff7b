// The exports that copy and repack BGR.
#include "frame/export.hpp"
#include "rgb/kernels.hpp"

using namespace orva;

ORVA_EX(BGR32I_BGR32I) { convert(activeKernels->rgb.bgr32ToBgr32, aligned::dst<16, 16>, d); }
ORVA_EX(BGR32I_BGR24I) { convert(activeKernels->rgb.bgr32ToBgr24, aligned::dst<48, 16>, d); }
ORVA_EX(BGR24I_BGR32I) { convert(activeKernels->rgb.bgr24ToBgr32, aligned::dst<16, 16>, d); }
ORVA_EX(BGR24I_BGR24I) { convert(activeKernels->rgb.bgr24ToBgr24, aligned::dst<48, 16>, d); }
