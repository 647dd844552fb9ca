#include "drawing/pixelroutines/avx2.h"
#include "drawing/pixelroutines/hslvectors.h"

#if defined(__x86_64__)

namespace mox::server {

namespace {

constexpr int one = static_cast<int>(hslOne);

/// Bytes of each pixel by a pattern for the first one.
MOX_AVX2_INLINE __m256i places(int first) {
    const __m256i pixels = _mm256_setr_epi32(0, 0x04040404, 0x08080808, 0x0C0C0C0C, 0, 0x04040404, 0x08080808, 0x0C0C0C0C);
    return _mm256_or_si256(_mm256_set1_epi32(first), pixels);
}

MOX_AVX2_INLINE __m256i lowBytes(__m256i pixels) {
    return _mm256_and_si256(pixels, _mm256_set1_epi32(0xFF));
}

/// Products of fixed-point numbers.
MOX_AVX2_INLINE __m256i product(__m256i a, __m256i b) {
    const __m256i even = _mm256_srli_epi64(_mm256_mul_epu32(a, b), 20);
    const __m256i odd = _mm256_slli_epi64(_mm256_mul_epu32(_mm256_srli_epi64(a, 32), _mm256_srli_epi64(b, 32)), 12);
    return _mm256_blend_epi32(even, odd, 0xAA);
}

/// Quotients of small numbers in fixed point, rounded down; 0 for a divisor of 0.
MOX_AVX2_INLINE __m256i quotient(__m256i dividends, __m256i divisors) {
    const __m256i shifted = _mm256_slli_epi32(dividends, 20);
    const __m256 rounded = _mm256_div_ps(_mm256_cvtepi32_ps(shifted), _mm256_cvtepi32_ps(divisors));
    // The division rounds to 24 bits, at times up.
    const __m256i whole = _mm256_cvttps_epi32(rounded);
    const __m256i rest = _mm256_sub_epi32(shifted, _mm256_mullo_epi32(whole, divisors));
    const __m256i quotients = _mm256_add_epi32(whole, _mm256_srai_epi32(rest, 31));
    return _mm256_andnot_si256(_mm256_cmpeq_epi32(divisors, _mm256_setzero_si256()), quotients);
}

MOX_AVX2_INLINE __m256i times255(__m256i numbers) {
    return _mm256_sub_epi32(_mm256_slli_epi32(numbers, 8), numbers);
}

/// Sums of two bytes, by 510, in fixed point.
MOX_AVX2_INLINE __m256i lightnessOf(__m256i sums) {
    // Times 2^19 by 255, which is 2056 and 8 by 255.
    const __m256i eights = _mm256_slli_epi32(sums, 3);
    const __m256i more = _mm256_add_epi32(_mm256_add_epi32(eights, _mm256_srli_epi32(eights, 8)), _mm256_set1_epi32(1));
    return _mm256_add_epi32(_mm256_add_epi32(_mm256_slli_epi32(sums, 11), eights), _mm256_srli_epi32(more, 8));
}

template <bool hasHue, bool hasSaturation> struct Change {
    int hueOrder;
    __m256i hue;
    __m256i saturation;
    __m256i factor;

    MOX_AVX2_INLINE __m256i operator()(__m256i pixels, std::size_t) const {
        // In all three places of a pixel its strongest and its weakest colour.
        const __m256i colors = _mm256_and_si256(pixels, _mm256_set1_epi32(colorBits));
        const __m256i second = _mm256_shuffle_epi8(colors, places(static_cast<int>(0x80000201u)));
        const __m256i third = _mm256_shuffle_epi8(colors, places(static_cast<int>(0x80010002u)));
        const __m256i most = _mm256_max_epu8(_mm256_max_epu8(colors, second), third);
        const __m256i least = _mm256_min_epu8(_mm256_min_epu8(colors, second), third);
        const __m256i difference = lowBytes(_mm256_sub_epi8(most, least));
        const __m256i sum = _mm256_add_epi32(lowBytes(most), lowBytes(least));

        const __m256i ones = _mm256_set1_epi32(one);
        const __m256i lightness = _mm256_min_epi32(product(lightnessOf(sum), factor), ones);
        const __m256i room = _mm256_min_epi32(sum, _mm256_sub_epi32(_mm256_set1_epi32(510), sum));
        const __m256i strength = hasSaturation ? saturation : quotient(difference, room);
        const __m256i isLight = _mm256_cmpgt_epi32(lightness, _mm256_set1_epi32(one / 2 - 1));
        const __m256i share = product(_mm256_blendv_epi8(lightness, _mm256_sub_epi32(ones, lightness), isLight),
                                      _mm256_blendv_epi8(_mm256_sub_epi32(ones, strength), strength, isLight));
        const __m256i low = _mm256_blendv_epi8(share, _mm256_sub_epi32(lightness, share), isLight);
        const __m256i width = _mm256_slli_epi32(_mm256_sub_epi32(lightness, low), 1);

        __m256i part = hue;
        __m256i order = places(hueOrder);
        if constexpr (!hasHue) {
            const __m256i middle =
                _mm256_xor_si256(_mm256_xor_si256(_mm256_xor_si256(colors, second), third), _mm256_xor_si256(most, least));
            const __m256i isGrey = _mm256_cmpeq_epi32(difference, _mm256_setzero_si256());
            part = quotient(lowBytes(_mm256_sub_epi8(middle, least)), difference);
            const __m256i isLow = _mm256_and_si256(_mm256_cmpeq_epi8(colors, least), _mm256_set1_epi8(hslLow));
            const __m256i isHigh = _mm256_and_si256(_mm256_cmpeq_epi8(colors, most), _mm256_set1_epi8(hslHigh));
            const __m256i own = _mm256_or_si256(places(0), _mm256_or_si256(isLow, isHigh));
            // The lightness of a grey pixel is its hue.
            part = _mm256_blendv_epi8(part, _mm256_sub_epi32(ones, lightness), isGrey);
            order = _mm256_blendv_epi8(own, order, isGrey);
        }
        const __m256i base = _mm256_add_epi32(times255(low), _mm256_set1_epi32(one / 2));
        const __m256i between = _mm256_srli_epi32(_mm256_add_epi32(base, times255(product(part, width))), 20);
        const __m256i high = _mm256_srli_epi32(_mm256_add_epi32(base, times255(width)), 20);
        const __m256i bytes = _mm256_or_si256(_mm256_or_si256(between, _mm256_slli_epi32(high, 8 * hslHigh)),
                                              _mm256_slli_epi32(_mm256_srli_epi32(base, 20), 8 * hslLow));
        return avx2::withFourthBytes(_mm256_shuffle_epi8(bytes, order), pixels);
    }
};

MOX_AVX2_INLINE __m256i inAllLanes(std::int64_t number) {
    return _mm256_set1_epi32(static_cast<int>(number));
}

template <bool hasHue, bool hasSaturation> MOX_AVX2 void change(const PixelWork& work, const HslSettings& settings) {
    const std::int64_t hue = settings.hue.value_or(0);
    avx2::runAll(work, Change<hasHue, hasSaturation>{static_cast<int>(hslOrder(hue)), inAllLanes(hslPart(hue)),
                                                     inAllLanes(settings.saturation.value_or(0)),
                                                     inAllLanes(settings.factor.value_or(hslOne))});
}

} // namespace

void hsl256(const PixelWork& work, const HslSettings& settings) {
    if (settings.hue) {
        (settings.saturation ? change<true, true> : change<true, false>)(work, settings);
    } else {
        (settings.saturation ? change<false, true> : change<false, false>)(work, settings);
    }
}

} // namespace mox::server

#endif
