#include "drawing/pixelroutines/vectors.h"

namespace mox::server {

Vectors bestVectors() noexcept {
#if defined(__x86_64__)
    static const Vectors best = [] {
        if (__builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
            __builtin_cpu_supports("avx512dq")) {
            return Vectors::avx512;
        }
        return __builtin_cpu_supports("avx2") ? Vectors::avx2 : Vectors::none;
    }();
    return best;
#else
    return Vectors::none;
#endif
}

} // namespace mox::server
