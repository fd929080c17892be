#include "editor/core/CpuFeatures.h"

#include <cstdlib>

bool UseAvx2() {
#if defined(KESTRUM_AVX2_FUNCTION)
    static const bool use = !std::getenv("KESTRUM_BASELINE_SIMD") &&
                            __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                            __builtin_cpu_supports("popcnt");
    return use;
#else
    return false;
#endif
}
