#include "drawing/pixelroutines/invert.h"

#include "drawing/pixelroutines/avx2.h"

#include <algorithm>

namespace mox::server {

#if defined(__x86_64__)
namespace {

struct Flip {
    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        return _mm256_xor_si256(pixels, _mm256_set1_epi32(colorBits));
    }
};

MOX_AVX2 void invertVectors(const PixelWork& work) {
    avx2::runAll(work, Flip{});
}

} // namespace
#endif

void invert(const PixelWork& work, [[maybe_unused]] Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return invertVectors(work);
    }
#endif
    std::ranges::transform(work.source, work.target.begin(), [](std::uint32_t pixel) { return pixel ^ colorBits; });
}

} // namespace mox::server
