// Runs over pixels with 512-bit vectors.
#pragma once

#if defined(__x86_64__)

#include "drawing/pixelroutines/avx2.h"

#define MOX_AVX512 __attribute__((target("avx2,avx512f,avx512bw,avx512vl,avx512dq,avx512vbmi")))
#define MOX_AVX512_INLINE __attribute__((target("avx2,avx512f,avx512bw,avx512vl,avx512dq,avx512vbmi"), always_inline)) inline

namespace mox::server::avx512 {

inline constexpr std::size_t lanes = 16;

template <class Kernel>
MOX_AVX512_INLINE void runPart(const std::uint32_t* source, std::uint32_t* target, std::size_t index, std::size_t count,
                               const Kernel& kernel) {
    const auto part = static_cast<__mmask16>((1u << count) - 1);
    _mm512_mask_storeu_epi32(target + index, part, kernel(_mm512_maskz_loadu_epi32(part, source + index), index));
}

/// Calls `kernel(pixels, index)` for sixteen pixels at a time, where `index` counts from the first pixel of the run.
template <bool streamed, class Kernel>
MOX_AVX512_INLINE void run(const std::uint32_t* source, std::uint32_t* target, std::size_t count, const Kernel& kernel) {
    std::size_t index = std::min(count, avx2::pixelsToLine(target));
    if (index > 0) {
        runPart(source, target, 0, index, kernel);
    }
    for (; index + lanes <= count; index += lanes) {
        const __m512i pixels = kernel(_mm512_loadu_si512(source + index), index);
        if constexpr (streamed) {
            _mm512_stream_si512(reinterpret_cast<__m512i*>(target + index), pixels);
        } else {
            _mm512_store_si512(target + index, pixels);
        }
    }
    if (index < count) {
        runPart(source, target, index, count - index, kernel);
    }
}

/// The whole picture as one run.
template <class Kernel> MOX_AVX512_INLINE void runAll(const PixelWork& work, const Kernel& kernel) {
    if (work.source.size() >= avx2::streamedPixels) {
        run<true>(work.source.data(), work.target.data(), work.source.size(), kernel);
        _mm_sfence();
    } else {
        run<false>(work.source.data(), work.target.data(), work.source.size(), kernel);
    }
}

/// A table of 256 bytes, looked up for 64 bytes at once.
class Lookup {
public:
    MOX_AVX512_INLINE explicit Lookup(const ByteTable& table)
        : rows_{_mm512_loadu_si512(&table[0]), _mm512_loadu_si512(&table[64]), _mm512_loadu_si512(&table[128]),
                _mm512_loadu_si512(&table[192])} {}

    MOX_AVX512_INLINE __m512i operator()(__m512i bytes) const {
        return _mm512_mask_blend_epi8(_mm512_movepi8_mask(bytes), _mm512_permutex2var_epi8(rows_[0], bytes, rows_[1]),
                                      _mm512_permutex2var_epi8(rows_[2], bytes, rows_[3]));
    }

private:
    __m512i rows_[4];
};

/// The byte of each colour of a pixel, and of no fourth byte.
inline constexpr __mmask64 colorBytes = 0x7777777777777777;

/// As those of 256 bits.
struct Weights {
    __m512i redAndBlue;
    __m512i green;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels) const {
        const __m512i two = _mm512_and_si512(pixels, _mm512_set1_epi32(0x00FF00FF));
        const __m512i one = _mm512_and_si512(_mm512_srli_epi32(pixels, 8), _mm512_set1_epi32(0xFF));
        return _mm512_add_epi32(_mm512_madd_epi16(two, redAndBlue), _mm512_madd_epi16(one, green));
    }
};

MOX_AVX512_INLINE Weights weights(int blue, int green, int red) {
    const avx2::Weights half = avx2::weights(blue, green, red);
    return {_mm512_broadcast_i64x4(half.redAndBlue), _mm512_broadcast_i64x4(half.green)};
}

MOX_AVX512_INLINE __m512i thousandths(__m512i sums) {
    return _mm512_srli_epi32(_mm512_mulhi_epu16(_mm512_srli_epi32(sums, 3), _mm512_set1_epi32(33555)), 6);
}

MOX_AVX512_INLINE __m512i greys(__m512i values) {
    const __m512i bytes = _mm512_set4_epi32(0x0C0C0C0C, 0x08080808, 0x04040404, 0);
    return _mm512_maskz_shuffle_epi8(colorBytes, values, bytes);
}

} // namespace mox::server::avx512

#endif
