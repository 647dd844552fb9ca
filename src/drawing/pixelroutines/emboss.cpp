#include "drawing/pixelroutines/emboss.h"

#include "drawing/pixelroutines/avx2.h"

#include <algorithm>

namespace mox::server {

namespace {

struct Offset {
    int columns;
    int rows;
};
constexpr std::array<Offset, 8> directions{{{-1, -1}, {0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}}};

constexpr int flat = 127;

std::uint32_t relief(std::uint32_t towards, std::uint32_t away) {
    const auto value = [](std::uint32_t p, std::uint32_t q) {
        return static_cast<std::uint32_t>(std::min(255, std::max(0, static_cast<int>(p) - static_cast<int>(q)) + flat));
    };
    return colorOf(value(blueOf(towards), blueOf(away)), value(greenOf(towards), greenOf(away)),
                   value(redOf(towards), redOf(away)));
}

void reliefOf(const std::uint32_t* source, std::uint32_t* target, std::size_t count, std::ptrdiff_t distance) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t* const pixel = source + i;
        target[i] = relief(pixel[distance], pixel[-distance]) | (*pixel & fourthByte);
    }
}

#if defined(__x86_64__)

struct Relief {
    const std::uint32_t* source;
    std::ptrdiff_t distance;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t index) const {
        const std::uint32_t* const place = source + index;
        const __m256i towards = avx2::load(place + distance);
        const __m256i away = avx2::load(place - distance);
        const __m256i heights = _mm256_adds_epu8(_mm256_subs_epu8(towards, away), _mm256_set1_epi8(flat));
        return avx2::withFourthBytes(heights, pixels);
    }
};

/// Leaves the ends of the run, where vectors would read beyond the picture, to the plain form.
template <bool streamed>
MOX_AVX2 void reliefVectors(const std::uint32_t* source, std::uint32_t* target, std::size_t count, std::ptrdiff_t distance) {
    const std::size_t before = std::min(count, avx2::pixelsToLine(target));
    const std::size_t middle = (count - before) / (2 * avx2::lanes) * (2 * avx2::lanes);
    reliefOf(source, target, before, distance);
    source += before;
    target += before;
    avx2::run<streamed>(source, target, middle, Relief{source, distance});
    reliefOf(source + middle, target + middle, count - before - middle, distance);
    if constexpr (streamed) {
        _mm_sfence();
    }
}

#endif

using Run = void (*)(const std::uint32_t* source, std::uint32_t* target, std::size_t count, std::ptrdiff_t distance);

Run bestRun(const PixelWork& work, Vectors vectors) {
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return work.source.size() >= avx2::streamedPixels ? reliefVectors<true> : reliefVectors<false>;
    }
#endif
    static_cast<void>(work);
    static_cast<void>(vectors);
    return reliefOf;
}

} // namespace

void emboss(const PixelWork& work, Byte direction, Vectors vectors) {
    const std::size_t width = work.width;
    if (width <= 2 || work.height <= 2) {
        std::ranges::copy(work.source, work.target.begin());
        return;
    }
    const Offset offset = directions[direction & 7];
    const std::uint32_t* const source = work.source.data();
    std::uint32_t* const target = work.target.data();
    // From the first inner pixel to the last as one run, with the columns at the sides, which are put right after it.
    const std::size_t first = width + 1;
    const std::size_t behind = work.source.size() - first;
    bestRun(work, vectors)(source + first, target + first, behind - first,
                           static_cast<std::ptrdiff_t>(width) * offset.rows + offset.columns);
    std::copy_n(source, first, target);
    for (std::size_t end = 2 * width; end < behind; end += width) {
        target[end - 1] = source[end - 1];
        target[end] = source[end];
    }
    std::copy_n(source + behind, first, target + behind);
}

} // namespace mox::server
