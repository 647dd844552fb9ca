// Runs over pixels with 256-bit vectors.
#pragma once

#if defined(__x86_64__)

#include "drawing/pixelroutines/pixelwork.h"

#include <algorithm>
#include <iterator>

// GCC 12 takes the lanes that an instruction leaves open for variables without a value (its bug 105593).
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>
#pragma GCC diagnostic pop

#define MOX_AVX2 __attribute__((target("avx2")))
#define MOX_AVX2_INLINE __attribute__((target("avx2"), always_inline)) inline

namespace mox::server::avx2 {

inline constexpr std::size_t lanes = 8;

/// Targets from this size on are written past the caches: they would not keep them, and need not read what is overwritten.
inline constexpr std::size_t streamedPixels = std::size_t{1} << 21;

/// All bits in the first `count` lanes, up to 8.
MOX_AVX2_INLINE __m256i firstLanes(std::size_t count) {
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(count)), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
}

MOX_AVX2_INLINE __m256i load(const std::uint32_t* place) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(place));
}

/// How many pixels to write to get to the next cache line.
inline std::size_t pixelsToLine(const std::uint32_t* target) {
    return (0 - reinterpret_cast<std::uintptr_t>(target) / sizeof *target) % (2 * lanes);
}

template <class Kernel>
MOX_AVX2_INLINE void runPart(const std::uint32_t* source, std::uint32_t* target, std::size_t index, std::size_t count,
                             const Kernel& kernel) {
    const __m256i part = firstLanes(count);
    const __m256i pixels = _mm256_maskload_epi32(reinterpret_cast<const int*>(source + index), part);
    _mm256_maskstore_epi32(reinterpret_cast<int*>(target + index), part, kernel(pixels, index));
}

/// Calls `kernel(pixels, index)` for eight pixels at a time, where `index` counts from the first pixel of the run.
template <bool streamed, class Kernel>
MOX_AVX2_INLINE void run(const std::uint32_t* source, std::uint32_t* target, std::size_t count, const Kernel& kernel) {
    const std::size_t before = std::min(count, pixelsToLine(target));
    for (std::size_t part = 0; part < before; part += lanes) {
        runPart(source, target, part, std::min(lanes, before - part), kernel);
    }
    std::size_t index = before;
    for (; index + 2 * lanes <= count; index += 2 * lanes) {
        const __m256i first = kernel(load(source + index), index);
        const __m256i second = kernel(load(source + index + lanes), index + lanes);
        auto* const place = reinterpret_cast<__m256i*>(target + index);
        if constexpr (streamed) {
            _mm256_stream_si256(place, first);
            _mm256_stream_si256(place + 1, second);
        } else {
            _mm256_store_si256(place, first);
            _mm256_store_si256(place + 1, second);
        }
    }
    for (; index < count; index += lanes) {
        runPart(source, target, index, std::min(lanes, count - index), kernel);
    }
}

/// The whole picture as one run.
template <class Kernel> MOX_AVX2_INLINE void runAll(const PixelWork& work, const Kernel& kernel) {
    if (work.source.size() >= streamedPixels) {
        run<true>(work.source.data(), work.target.data(), work.source.size(), kernel);
        _mm_sfence();
    } else {
        run<false>(work.source.data(), work.target.data(), work.source.size(), kernel);
    }
}

/// `weighted` as sums of eight pixels: each factor, up to 16 bits with a sign, times its byte.
struct Weights {
    __m256i redAndBlue;
    __m256i green;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels) const {
        const __m256i two = _mm256_and_si256(pixels, _mm256_set1_epi32(0x00FF00FF));
        const __m256i one = _mm256_and_si256(_mm256_srli_epi32(pixels, 8), _mm256_set1_epi32(0xFF));
        return _mm256_add_epi32(_mm256_madd_epi16(two, redAndBlue), _mm256_madd_epi16(one, green));
    }
};

MOX_AVX2_INLINE Weights weights(int blue, int green, int red) {
    return {_mm256_set1_epi32(static_cast<int>(static_cast<unsigned>(red) << 16 | (static_cast<unsigned>(blue) & 0xFFFF))),
            _mm256_set1_epi32(green & 0xFFFF)};
}

/// Sums below 472592 divided by 1000: by 8, and by 125 as a product with its reciprocal of 22 bits.
MOX_AVX2_INLINE __m256i thousandths(__m256i sums) {
    return _mm256_srli_epi32(_mm256_mulhi_epu16(_mm256_srli_epi32(sums, 3), _mm256_set1_epi32(33555)), 6);
}

/// The low byte of each lane in the three colours of its pixel, 0 in the fourth byte.
MOX_AVX2_INLINE __m256i greys(__m256i values) {
    constexpr char none = -1;
    return _mm256_shuffle_epi8(values, _mm256_setr_epi8(0, 0, 0, none, 4, 4, 4, none, 8, 8, 8, none, 12, 12, 12, none, 0, 0, 0,
                                                        none, 4, 4, 4, none, 8, 8, 8, none, 12, 12, 12, none));
}

/// A table of 256 bytes, looked up for 32 bytes at once: sixteen rows of sixteen values, each held as what it changes of the
/// row before.
class Lookup {
public:
    MOX_AVX2_INLINE explicit Lookup(const ByteTable& table) {
        for (std::size_t row = 0; row < std::size(rows_); ++row) {
            const __m128i values = _mm_loadu_si128(reinterpret_cast<const __m128i*>(&table[row * 16]));
            const __m128i before =
                row % 8 == 0 ? _mm_setzero_si128() : _mm_loadu_si128(reinterpret_cast<const __m128i*>(&table[(row - 1) * 16]));
            rows_[row] = _mm256_broadcastsi128_si256(_mm_xor_si128(values, before));
        }
    }

    MOX_AVX2_INLINE __m256i operator()(__m256i bytes) const {
        return _mm256_xor_si256(half(0, bytes), half(8, _mm256_xor_si256(bytes, _mm256_set1_epi8(-128))));
    }

private:
    /// Eight rows for bytes below 128; others give 0, as a shuffle does for them, and subtraction that stops at -128 leaves them
    /// so.
    MOX_AVX2_INLINE __m256i half(std::size_t first, __m256i bytes) const {
        __m256i values = _mm256_shuffle_epi8(rows_[first], bytes);
        for (std::size_t row = 1; row < 8; ++row) {
            bytes = _mm256_subs_epi8(bytes, _mm256_set1_epi8(16));
            values = _mm256_xor_si256(values, _mm256_shuffle_epi8(rows_[first + row], bytes));
        }
        return values;
    }

    __m256i rows_[16];
};

/// The colours of one, the fourth bytes of the other.
MOX_AVX2_INLINE __m256i withFourthBytes(__m256i colors, __m256i pixels) {
    return _mm256_blendv_epi8(colors, pixels, _mm256_set1_epi32(static_cast<int>(fourthByte)));
}

} // namespace mox::server::avx2

#endif
