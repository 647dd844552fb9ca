#include "drawing/pixelroutines/tablepass.h"

#include "drawing/pixelroutines/avx512.h"

#include <algorithm>

namespace mox::server {

#if defined(__x86_64__)
namespace {

struct Colors256 {
    avx2::Lookup table;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const { return avx2::withFourthBytes(table(pixels), pixels); }
};

MOX_AVX2 void applyTable256(const PixelWork& work, const ByteTable& table) {
    avx2::runAll(work, Colors256{avx2::Lookup(table)});
}

struct Colors512 {
    avx512::Lookup table;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels, std::size_t) const {
        return _mm512_mask_blend_epi8(avx512::colorBytes, pixels, table(pixels));
    }
};

MOX_AVX512 void applyTable512(const PixelWork& work, const ByteTable& table) {
    avx512::runAll(work, Colors512{avx512::Lookup(table)});
}

} // namespace
#endif

void applyTable(const PixelWork& work, const ByteTable& table, [[maybe_unused]] Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx512) {
        return applyTable512(work, table);
    }
    if (vectors >= Vectors::avx2) {
        return applyTable256(work, table);
    }
#endif
    std::ranges::transform(work.source, work.target.begin(), [&](std::uint32_t pixel) {
        return colorOf(table[blueOf(pixel)], table[greenOf(pixel)], table[redOf(pixel)]) | (pixel & fourthByte);
    });
}

} // namespace mox::server
