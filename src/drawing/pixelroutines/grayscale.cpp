#include "drawing/pixelroutines/grayscale.h"

#include "drawing/pixelroutines/avx2.h"

#include <algorithm>

namespace mox::server {

#if defined(__x86_64__)
namespace {

struct Gray {
    avx2::Weights weights;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        return avx2::greys(avx2::thousandths(weights(pixels)));
    }
};

MOX_AVX2 void grayScaleVectors(const PixelWork& work, const GrayFactors& factors) {
    avx2::runAll(work, Gray{avx2::weights(factors.first, factors.second, factors.third)});
}

/// The vectors divide sums below 472592 only.
bool suitsVectors(const GrayFactors& factors) {
    constexpr std::uint32_t most = 1853;
    const auto fits = [](Long factor) { return static_cast<std::uint32_t>(factor) <= most; };
    return fits(factors.first) && fits(factors.second) && fits(factors.third) &&
           fits(factors.first + factors.second + factors.third);
}

} // namespace
#endif

void grayScale(const PixelWork& work, const GrayFactors& factors, [[maybe_unused]] Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2 && suitsVectors(factors)) {
        return grayScaleVectors(work, factors);
    }
#endif
    const auto first = static_cast<std::uint32_t>(factors.first);
    const auto second = static_cast<std::uint32_t>(factors.second);
    const auto third = static_cast<std::uint32_t>(factors.third);
    std::ranges::transform(work.source, work.target.begin(), [=](std::uint32_t pixel) {
        const std::uint32_t sum = first * blueOf(pixel) + second * greenOf(pixel) + third * redOf(pixel);
        const auto grey = static_cast<std::uint32_t>(static_cast<Long>(sum) / 1000);
        const std::uint32_t low = grey & 0xFF;
        return colorOf(low, low, low) | (grey >> 16 & 0xFF) << 24;
    });
}

} // namespace mox::server
