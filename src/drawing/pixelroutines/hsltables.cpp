#include "drawing/pixelroutines/hsltables.h"

#include "drawing/pixelroutines/avx512.h"

namespace mox::server {

namespace {

constexpr std::size_t values = 256;

template <class Entry, class Maker> std::vector<Entry> tableOf(const HslSettings& settings, Maker maker) {
    std::vector<Entry> table(values * values);
    for (std::size_t most = 0; most < values; ++most) {
        for (std::size_t least = 0; least <= most; ++least) {
            table[hslIndex(most, least)] = maker(hslRange(settings, static_cast<int>(most), static_cast<int>(least)));
        }
    }
    return table;
}

} // namespace

std::vector<std::uint32_t> hslColors(const HslSettings& settings) {
    return tableOf<std::uint32_t>(settings, [&](HslRange range) { return hslColor(range, *settings.hue); });
}

HslRanges::HslRanges(const HslSettings& settings)
    : ranges(tableOf<std::uint64_t>(settings, [](HslRange range) {
          return static_cast<std::uint64_t>(range.high - range.low) | static_cast<std::uint64_t>(range.low * 255 + hslOne / 2)
                                                                          << 32;
      })) {
    for (std::uint32_t value = 0; value < greys.size(); ++value) {
        greys[value] = hslPixel(settings, colorOf(value, value, value));
    }
}

#if defined(__x86_64__)

namespace {

/// In the place of each colour of a pixel, the next one in a circle, and nothing in that of the fourth byte.
constexpr int turned = static_cast<int>(0x80000201u);
/// And the one after that.
constexpr int turnedTwice = static_cast<int>(0x80010002u);
constexpr int oneByte = 0xFF;

/// The strongest and the weakest colour of eight pixels, each in all three places, and their place in the tables.
struct Extremes256 {
    __m256i second;
    __m256i third;
    __m256i most;
    __m256i least;
    __m256i index;

    MOX_AVX2_INLINE explicit Extremes256(__m256i colors) {
        second = _mm256_shuffle_epi8(colors, places(turned));
        third = _mm256_shuffle_epi8(colors, places(turnedTwice));
        most = _mm256_max_epu8(_mm256_max_epu8(colors, second), third);
        least = _mm256_min_epu8(_mm256_min_epu8(colors, second), third);
        const __m256i byte = _mm256_set1_epi32(oneByte);
        index = _mm256_or_si256(_mm256_slli_epi32(_mm256_and_si256(most, byte), 8), _mm256_and_si256(least, byte));
    }

    /// Bytes of each pixel by a pattern for the first one.
    MOX_AVX2_INLINE static __m256i places(int first) {
        const __m256i pixels = _mm256_setr_epi32(0, 0x04040404, 0x08080808, 0x0C0C0C0C, 0, 0x04040404, 0x08080808, 0x0C0C0C0C);
        return _mm256_or_si256(_mm256_set1_epi32(first), pixels);
    }
};

struct Colors256 {
    const int* colors;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        const Extremes256 extremes(_mm256_and_si256(pixels, _mm256_set1_epi32(colorBits)));
        return avx2::withFourthBytes(_mm256_i32gather_epi32(colors, extremes.index, 4), pixels);
    }
};

struct Ranges256 {
    const long long* ranges;
    const int* greys;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        const __m256i colors = _mm256_and_si256(pixels, _mm256_set1_epi32(colorBits));
        const Extremes256 extremes(colors);
        const __m256i middle = _mm256_xor_si256(_mm256_xor_si256(_mm256_xor_si256(colors, extremes.second), extremes.third),
                                                _mm256_xor_si256(extremes.most, extremes.least));
        const __m256i byte = _mm256_set1_epi32(oneByte);
        const __m256i difference = _mm256_and_si256(_mm256_sub_epi8(extremes.most, extremes.least), byte);
        const __m256i part =
            quotients(_mm256_slli_epi32(_mm256_and_si256(_mm256_sub_epi8(middle, extremes.least), byte), 20), difference);

        const __m256i first = _mm256_i32gather_epi64(ranges, _mm256_castsi256_si128(extremes.index), 8);
        const __m256i second = _mm256_i32gather_epi64(ranges, _mm256_extracti128_si256(extremes.index, 1), 8);
        const __m256i shares =
            halves<0>(shareOf(first, _mm256_castsi256_si128(part)), shareOf(second, _mm256_extracti128_si256(part, 1)));
        const __m256i low = halves<1>(first, second);
        // In each lane the bytes between, low and high.
        const __m256i between = _mm256_srli_epi32(_mm256_add_epi32(low, times255(shares)), 20);
        const __m256i lowByte = _mm256_slli_epi32(_mm256_srli_epi32(low, 20), 8);
        const __m256i highByte =
            _mm256_slli_epi32(_mm256_srli_epi32(_mm256_add_epi32(low, times255(halves<0>(first, second))), 20), 16);
        const __m256i bytes = _mm256_or_si256(_mm256_or_si256(between, lowByte), highByte);
        const __m256i one = _mm256_and_si256(_mm256_cmpeq_epi8(colors, extremes.least), _mm256_set1_epi8(1));
        const __m256i two = _mm256_and_si256(_mm256_cmpeq_epi8(colors, extremes.most), _mm256_set1_epi8(2));
        __m256i result = _mm256_shuffle_epi8(bytes, _mm256_or_si256(Extremes256::places(0), _mm256_or_si256(one, two)));

        const __m256i isGrey = _mm256_cmpeq_epi32(difference, _mm256_setzero_si256());
        if (!_mm256_testz_si256(isGrey, isGrey)) {
            result = _mm256_mask_i32gather_epi32(result, greys, _mm256_and_si256(colors, byte), isGrey, 4);
        }
        return avx2::withFourthBytes(result, pixels);
    }

    /// Rounded down, and anything for a divisor of 0. The division rounds to 24 bits, at times up.
    MOX_AVX2_INLINE static __m256i quotients(__m256i dividends, __m256i divisors) {
        const __m256i rounded = _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(dividends), _mm256_cvtepi32_ps(divisors)));
        const __m256i rest = _mm256_sub_epi32(dividends, _mm256_mullo_epi32(rounded, divisors));
        return _mm256_add_epi32(rounded, _mm256_srai_epi32(rest, 31));
    }
    /// What a part of four ranges is.
    MOX_AVX2_INLINE static __m256i shareOf(__m256i fourRanges, __m128i part) {
        return _mm256_srli_epi64(_mm256_mul_epu32(fourRanges, _mm256_cvtepu32_epi64(part)), 20);
    }
    /// The low or the high halves of eight numbers of 64 bits.
    template <int which> MOX_AVX2_INLINE static __m256i halves(__m256i first, __m256i second) {
        constexpr int selection = which == 0 ? 0x88 : 0xDD;
        const __m256 mixed = _mm256_shuffle_ps(_mm256_castsi256_ps(first), _mm256_castsi256_ps(second), selection);
        return _mm256_permute4x64_epi64(_mm256_castps_si256(mixed), 0xD8);
    }
    MOX_AVX2_INLINE static __m256i times255(__m256i numbers) { return _mm256_sub_epi32(_mm256_slli_epi32(numbers, 8), numbers); }
};

/// As those of 256 bits, for sixteen pixels.
struct Extremes512 {
    __m512i second;
    __m512i third;
    __m512i most;
    __m512i least;
    __m512i index;

    MOX_AVX512_INLINE explicit Extremes512(__m512i colors) {
        second = _mm512_shuffle_epi8(colors, places(turned));
        third = _mm512_shuffle_epi8(colors, places(turnedTwice));
        most = _mm512_max_epu8(_mm512_max_epu8(colors, second), third);
        least = _mm512_min_epu8(_mm512_min_epu8(colors, second), third);
        const __m512i byte = _mm512_set1_epi32(oneByte);
        index = _mm512_or_si512(_mm512_slli_epi32(_mm512_and_si512(most, byte), 8), _mm512_and_si512(least, byte));
    }

    MOX_AVX512_INLINE static __m512i places(int first) {
        return _mm512_or_si512(_mm512_set1_epi32(first), _mm512_set4_epi32(0x0C0C0C0C, 0x08080808, 0x04040404, 0));
    }
};

struct Colors512 {
    const std::uint32_t* colors;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels, std::size_t) const {
        const Extremes512 extremes(_mm512_and_si512(pixels, _mm512_set1_epi32(colorBits)));
        return _mm512_mask_blend_epi8(avx512::colorBytes, pixels, _mm512_i32gather_epi32(extremes.index, colors, 4));
    }
};

struct Ranges512 {
    const std::uint64_t* ranges;
    const std::uint32_t* greys;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels, std::size_t) const {
        const __m512i colors = _mm512_and_si512(pixels, _mm512_set1_epi32(colorBits));
        const Extremes512 extremes(colors);
        const __m512i middle = _mm512_xor_si512(_mm512_xor_si512(_mm512_xor_si512(colors, extremes.second), extremes.third),
                                                _mm512_xor_si512(extremes.most, extremes.least));
        const __m512i byte = _mm512_set1_epi32(oneByte);
        const __m512i difference = _mm512_and_si512(_mm512_sub_epi8(extremes.most, extremes.least), byte);
        const __m512i part =
            quotients(_mm512_slli_epi32(_mm512_and_si512(_mm512_sub_epi8(middle, extremes.least), byte), 20), difference);

        const __m512i first = _mm512_i32gather_epi64(_mm512_castsi512_si256(extremes.index), ranges, 8);
        const __m512i second = _mm512_i32gather_epi64(_mm512_extracti64x4_epi64(extremes.index, 1), ranges, 8);
        const __m512i shares =
            halves(0, shareOf(first, _mm512_castsi512_si256(part)), shareOf(second, _mm512_extracti64x4_epi64(part, 1)));
        const __m512i low = halves(1, first, second);
        const __m512i between = _mm512_srli_epi32(_mm512_add_epi32(low, times255(shares)), 20);
        const __m512i lowByte = _mm512_slli_epi32(_mm512_srli_epi32(low, 20), 8);
        const __m512i highByte =
            _mm512_slli_epi32(_mm512_srli_epi32(_mm512_add_epi32(low, times255(halves(0, first, second))), 20), 16);
        const __m512i bytes = _mm512_or_si512(_mm512_or_si512(between, lowByte), highByte);
        __m512i from = Extremes512::places(0);
        from = _mm512_mask_mov_epi8(from, _mm512_cmpeq_epi8_mask(colors, extremes.least), Extremes512::places(0x01010101));
        from = _mm512_mask_mov_epi8(from, _mm512_cmpeq_epi8_mask(colors, extremes.most), Extremes512::places(0x02020202));
        __m512i result = _mm512_shuffle_epi8(bytes, from);

        const __mmask16 isGrey = _mm512_testn_epi32_mask(difference, difference);
        if (isGrey != 0) {
            result = _mm512_mask_i32gather_epi32(result, isGrey, _mm512_and_si512(colors, byte), greys, 4);
        }
        return _mm512_mask_blend_epi8(avx512::colorBytes, pixels, result);
    }

    MOX_AVX512_INLINE static __m512i quotients(__m512i dividends, __m512i divisors) {
        constexpr int down = _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC;
        return _mm512_cvttps_epi32(_mm512_div_round_ps(_mm512_cvtepi32_ps(dividends), _mm512_cvtepi32_ps(divisors), down));
    }
    MOX_AVX512_INLINE static __m512i shareOf(__m512i eightRanges, __m256i part) {
        return _mm512_srli_epi64(_mm512_mul_epu32(eightRanges, _mm512_cvtepu32_epi64(part)), 20);
    }
    MOX_AVX512_INLINE static __m512i halves(int which, __m512i first, __m512i second) {
        const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
        return _mm512_permutex2var_epi32(first, _mm512_add_epi32(even, _mm512_set1_epi32(which)), second);
    }
    MOX_AVX512_INLINE static __m512i times255(__m512i numbers) {
        return _mm512_sub_epi32(_mm512_slli_epi32(numbers, 8), numbers);
    }
};

MOX_AVX2 void colors256(const PixelWork& work, const std::vector<std::uint32_t>& colors) {
    avx2::runAll(work, Colors256{reinterpret_cast<const int*>(colors.data())});
}

MOX_AVX2 void ranges256(const PixelWork& work, const HslRanges& tables) {
    avx2::runAll(work, Ranges256{reinterpret_cast<const long long*>(tables.ranges.data()),
                                 reinterpret_cast<const int*>(tables.greys.data())});
}

MOX_AVX512 void colors512(const PixelWork& work, const std::vector<std::uint32_t>& colors) {
    avx512::runAll(work, Colors512{colors.data()});
}

MOX_AVX512 void ranges512(const PixelWork& work, const HslRanges& tables) {
    avx512::runAll(work, Ranges512{tables.ranges.data(), tables.greys.data()});
}

} // namespace

void hslByTables(const PixelWork& work, const HslSettings& settings, Vectors vectors) {
    if (settings.hue) {
        (vectors >= Vectors::avx512 ? colors512 : colors256)(work, hslColors(settings));
    } else {
        (vectors >= Vectors::avx512 ? ranges512 : ranges256)(work, HslRanges(settings));
    }
}

#endif

} // namespace mox::server
