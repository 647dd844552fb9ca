#include "drawing/pixelroutines/rgb.h"

#include "drawing/pixelroutines/avx2.h"

#include <algorithm>

namespace mox::server {

#if defined(__x86_64__)
namespace {

template <bool wrap> struct Add {
    __m256i offsets;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        const __m256i colors = _mm256_and_si256(pixels, _mm256_set1_epi32(colorBits));
        return wrap ? _mm256_add_epi8(colors, offsets) : _mm256_adds_epu8(colors, offsets);
    }
};

MOX_AVX2 void rgbVectors(const PixelWork& work, const RgbOffsets& offsets) {
    const __m256i all = _mm256_set1_epi32(static_cast<int>(colorOf(offsets.blue, offsets.green, offsets.red)));
    if (offsets.wrap) {
        avx2::runAll(work, Add<true>{all});
    } else {
        avx2::runAll(work, Add<false>{all});
    }
}

} // namespace
#endif

void rgb(const PixelWork& work, const RgbOffsets& offsets, [[maybe_unused]] Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return rgbVectors(work, offsets);
    }
#endif
    const auto sum = [wrap = offsets.wrap](std::uint32_t value, Byte offset) {
        return wrap ? (value + offset) % 256 : std::min(value + offset, 255u);
    };
    std::ranges::transform(work.source, work.target.begin(), [&](std::uint32_t pixel) {
        return colorOf(sum(blueOf(pixel), offsets.blue), sum(greenOf(pixel), offsets.green), sum(redOf(pixel), offsets.red));
    });
}

} // namespace mox::server
