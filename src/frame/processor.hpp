// Which tables this processor and its system can run. __builtin_cpu_init() must have been called.
#pragma once

namespace orva {

inline bool supportsSse2() { return true; }
inline bool supportsAvx2() { return __builtin_cpu_supports("avx2") != 0; }
inline bool supportsAvx512() {
    return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
           __builtin_cpu_supports("avx512vnni");
}

}  // namespace orva
