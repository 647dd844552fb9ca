#include "drawing/pixelroutines/neon.h"

#include "drawing/pixelroutines/avx512.h"

#include <bit>
#include <cmath>

namespace mox::server {

namespace {

/// The waves of `mode`: a cosine over a circle of 255 steps, moved up or folded up, in odd modes in the upper half only.
ByteTable neonTable(Byte factor, Byte mode) {
    const auto step = std::bit_cast<double>(0x3F993B368ACEFC0F); // 2 pi / 255
    ByteTable table;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double wave = 127 * std::cos(static_cast<double>((factor + i) % 256) * step);
        const double value = std::nearbyint(std::abs((mode & 3) == 0 ? wave - 127 : wave));
        table[i] = static_cast<Byte>(static_cast<unsigned>(value) | (mode & 1 ? 128 : 0));
    }
    return table;
}

/// One row, with the low byte of the number of rows from it to the top, itself included.
void neonRow(const std::uint32_t* source, std::uint32_t* target, std::size_t width, std::uint32_t rows, const ByteTable& table,
             bool grey) {
    for (std::size_t x = 0; x < width; ++x) {
        const std::uint32_t pixel = source[x];
        const auto columns = static_cast<std::uint32_t>(width - x);
        const std::uint32_t blue = table[(blueOf(pixel) + rows) % 256];
        const std::uint32_t green = table[(greenOf(pixel) - columns) % 256];
        const std::uint32_t red = table[(redOf(pixel) + rows) % 256];
        if (grey) {
            const std::uint32_t value = weightedSum(blue, green, red) / 1000;
            target[x] = colorOf(value, value, value);
        } else {
            target[x] = colorOf(blue, green, red) | (pixel & fourthByte);
        }
    }
}

#if defined(__x86_64__)

/// What is added to the colours of the first pixel of a row; to green of each next pixel 1 more.
std::uint32_t shiftOf(std::size_t width, std::size_t rows) {
    return colorOf(rows & 0xFF, (0 - width) & 0xFF, rows & 0xFF);
}

template <bool grey> struct Wave256 {
    const avx2::Lookup& table;
    const avx2::Weights& weights;
    __m256i shift;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t index) const {
        const __m256i columns = _mm256_set1_epi32(static_cast<int>((index & 0xFF) << 8));
        const __m256i colors = table(_mm256_add_epi8(_mm256_add_epi8(pixels, shift), columns));
        if constexpr (grey) {
            return avx2::greys(avx2::thousandths(weights(colors)));
        } else {
            return avx2::withFourthBytes(colors, pixels);
        }
    }
};

template <bool grey, bool streamed> MOX_AVX2 void neon256(const PixelWork& work, const ByteTable& table) {
    const avx2::Lookup lookup(table);
    const avx2::Weights weights = avx2::weights(blueWeight, greenWeight, redWeight);
    const __m256i columns = _mm256_slli_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), 8);
    for (std::size_t y = 0; y < work.height; ++y) {
        const std::uint32_t first = shiftOf(work.width, work.height - y);
        const __m256i shift = _mm256_add_epi8(_mm256_set1_epi32(static_cast<int>(first)), columns);
        avx2::run<streamed>(&work.source[y * work.width], &work.target[y * work.width], work.width,
                            Wave256<grey>{lookup, weights, shift});
    }
    _mm_sfence();
}

template <bool grey> struct Wave512 {
    const avx512::Lookup& table;
    const avx512::Weights& weights;
    __m512i shift;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels, std::size_t index) const {
        const __m512i columns = _mm512_set1_epi32(static_cast<int>((index & 0xFF) << 8));
        const __m512i colors = table(_mm512_add_epi8(_mm512_add_epi8(pixels, shift), columns));
        if constexpr (grey) {
            return avx512::greys(avx512::thousandths(weights(colors)));
        } else {
            return _mm512_mask_blend_epi8(avx512::colorBytes, pixels, colors);
        }
    }
};

template <bool grey, bool streamed> MOX_AVX512 void neon512(const PixelWork& work, const ByteTable& table) {
    const avx512::Lookup lookup(table);
    const avx512::Weights weights = avx512::weights(blueWeight, greenWeight, redWeight);
    const __m512i columns = _mm512_slli_epi32(_mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15), 8);
    for (std::size_t y = 0; y < work.height; ++y) {
        const std::uint32_t first = shiftOf(work.width, work.height - y);
        const __m512i shift = _mm512_add_epi8(_mm512_set1_epi32(static_cast<int>(first)), columns);
        avx512::run<streamed>(&work.source[y * work.width], &work.target[y * work.width], work.width,
                              Wave512<grey>{lookup, weights, shift});
    }
    _mm_sfence();
}

using Pass = void (*)(const PixelWork& work, const ByteTable& table);

/// By whether the result is grey and is streamed.
constexpr Pass passes256[2][2] = {{neon256<false, false>, neon256<false, true>}, {neon256<true, false>, neon256<true, true>}};
constexpr Pass passes512[2][2] = {{neon512<false, false>, neon512<false, true>}, {neon512<true, false>, neon512<true, true>}};

#endif

} // namespace

void neon(const PixelWork& work, Byte factor, Byte mode, bool grey, [[maybe_unused]] Vectors vectors) {
    const ByteTable table = neonTable(factor, mode);
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        const auto& passes = vectors >= Vectors::avx512 ? passes512 : passes256;
        return passes[grey][work.source.size() >= avx2::streamedPixels](work, table);
    }
#endif
    for (std::size_t y = 0; y < work.height; ++y) {
        const std::size_t begin = y * work.width;
        neonRow(&work.source[begin], &work.target[begin], work.width, static_cast<std::uint32_t>(work.height - y), table, grey);
    }
}

} // namespace mox::server
