#include "drawing/pixelroutines/blackandwhite.h"

#include "drawing/pixelroutines/avx2.h"

#include <algorithm>

namespace mox::server {

#if defined(__x86_64__)
namespace {

struct Choose {
    avx2::Weights weights;
    __m256i limit;
    __m256i black;
    __m256i white;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        return _mm256_blendv_epi8(white, black, _mm256_cmpgt_epi32(limit, weights(pixels)));
    }
};

MOX_AVX2 void blackAndWhiteVectors(const PixelWork& work, Byte threshold, std::uint32_t black, std::uint32_t white) {
    avx2::runAll(work, Choose{avx2::weights(blueWeight, greenWeight, redWeight), _mm256_set1_epi32(threshold * 1000),
                              _mm256_set1_epi32(static_cast<int>(black)), _mm256_set1_epi32(static_cast<int>(white))});
}

} // namespace
#endif

void blackAndWhite(const PixelWork& work, Byte threshold, std::uint32_t black, std::uint32_t white,
                   [[maybe_unused]] Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return blackAndWhiteVectors(work, threshold, black, white);
    }
#endif
    std::ranges::transform(work.source, work.target.begin(), [=](std::uint32_t pixel) {
        const std::uint32_t grey = weightedSum(blueOf(pixel), greenOf(pixel), redOf(pixel)) / 1000;
        return grey < threshold ? black : white;
    });
}

} // namespace mox::server
