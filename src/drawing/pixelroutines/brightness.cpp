#include "drawing/pixelroutines/brightness.h"

#include "drawing/pixelroutines/avx2.h"
#include "drawing/pixelroutines/tablepass.h"

#include <algorithm>
#include <cstdlib>

namespace mox::server {

namespace {

/// Each value is `base` + value * `slope` / 256.
struct Line {
    std::uint32_t base;
    std::uint32_t slope;
};

ByteTable tableOf(Line line) {
    ByteTable table;
    std::uint32_t sum = 0;
    for (Byte& entry : table) {
        entry = static_cast<Byte>(line.base + sum / 256);
        sum += line.slope;
    }
    return table;
}

#if defined(__x86_64__)

/// The high halves of products of 16 bits are the quotients by 256. The fourth bytes are taken 256 times.
struct Scale {
    __m256i slopes;
    __m256i bases;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i low = _mm256_mulhi_epu16(_mm256_unpacklo_epi8(zero, pixels), slopes);
        const __m256i high = _mm256_mulhi_epu16(_mm256_unpackhi_epi8(zero, pixels), slopes);
        return _mm256_add_epi8(_mm256_packus_epi16(low, high), bases);
    }
};

MOX_AVX2 void brightnessVectors(const PixelWork& work, Line line) {
    const long long slope = line.slope;
    avx2::runAll(work, Scale{_mm256_set1_epi64x(slope | slope << 16 | slope << 32 | 256LL << 48),
                             _mm256_set1_epi32(static_cast<int>(colorOf(line.base, line.base, line.base)))});
}

#endif

} // namespace

void brightness(const PixelWork& work, Integer factor, Vectors vectors) {
    const int kept = std::clamp<int>(factor, -mostBrightness, mostBrightness);
    const Line line{kept < 0 ? 1u : static_cast<std::uint32_t>(kept),
                    static_cast<std::uint32_t>(mostBrightness - std::abs(kept))};
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return brightnessVectors(work, line);
    }
#endif
    applyTable(work, tableOf(line), vectors);
}

} // namespace mox::server
