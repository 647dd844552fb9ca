#include "drawing/pixelroutines/avx512.h"
#include "drawing/pixelroutines/hslvectors.h"

#if defined(__x86_64__)

namespace mox::server {

namespace {

constexpr int one = static_cast<int>(hslOne);

/// Bytes of each pixel by a pattern for the first one.
MOX_AVX512_INLINE __m512i places(int first) {
    return _mm512_or_si512(_mm512_set1_epi32(first), _mm512_set4_epi32(0x0C0C0C0C, 0x08080808, 0x04040404, 0));
}

MOX_AVX512_INLINE __m512i lowBytes(__m512i pixels) {
    return _mm512_and_si512(pixels, _mm512_set1_epi32(0xFF));
}

/// Products of fixed-point numbers.
MOX_AVX512_INLINE __m512i product(__m512i a, __m512i b) {
    const __m512i even = _mm512_srli_epi64(_mm512_mul_epu32(a, b), 20);
    const __m512i odd = _mm512_slli_epi64(_mm512_mul_epu32(_mm512_srli_epi64(a, 32), _mm512_srli_epi64(b, 32)), 12);
    return _mm512_mask_blend_epi32(0xAAAA, even, odd);
}

/// Quotients of small numbers in fixed point, rounded down; 0 for a divisor of 0.
MOX_AVX512_INLINE __m512i quotient(__m512i dividends, __m512i divisors) {
    constexpr int down = _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC;
    const __m512 shifted = _mm512_cvtepi32_ps(_mm512_slli_epi32(dividends, 20));
    return _mm512_maskz_cvttps_epi32(_mm512_test_epi32_mask(divisors, divisors),
                                     _mm512_div_round_ps(shifted, _mm512_cvtepi32_ps(divisors), down));
}

MOX_AVX512_INLINE __m512i times255(__m512i numbers) {
    return _mm512_sub_epi32(_mm512_slli_epi32(numbers, 8), numbers);
}

/// Sums of two bytes, by 510, in fixed point.
MOX_AVX512_INLINE __m512i lightnessOf(__m512i sums) {
    // Times 2^19 by 255, which is 2056 and 8 by 255.
    const __m512i eights = _mm512_slli_epi32(sums, 3);
    const __m512i more = _mm512_add_epi32(_mm512_add_epi32(eights, _mm512_srli_epi32(eights, 8)), _mm512_set1_epi32(1));
    return _mm512_add_epi32(_mm512_add_epi32(_mm512_slli_epi32(sums, 11), eights), _mm512_srli_epi32(more, 8));
}

template <bool hasHue, bool hasSaturation> struct Change {
    int hueOrder;
    __m512i hue;
    __m512i saturation;
    __m512i factor;

    MOX_AVX512_INLINE __m512i operator()(__m512i pixels, std::size_t) const {
        // In all three places of a pixel its strongest and its weakest colour.
        const __m512i colors = _mm512_and_si512(pixels, _mm512_set1_epi32(colorBits));
        const __m512i second = _mm512_shuffle_epi8(colors, places(static_cast<int>(0x80000201u)));
        const __m512i third = _mm512_shuffle_epi8(colors, places(static_cast<int>(0x80010002u)));
        const __m512i most = _mm512_max_epu8(_mm512_max_epu8(colors, second), third);
        const __m512i least = _mm512_min_epu8(_mm512_min_epu8(colors, second), third);
        const __m512i difference = lowBytes(_mm512_sub_epi8(most, least));
        const __m512i sum = _mm512_add_epi32(lowBytes(most), lowBytes(least));

        const __m512i ones = _mm512_set1_epi32(one);
        const __m512i lightness = _mm512_min_epi32(product(lightnessOf(sum), factor), ones);
        const __m512i room = _mm512_min_epi32(sum, _mm512_sub_epi32(_mm512_set1_epi32(510), sum));
        const __m512i strength = hasSaturation ? saturation : quotient(difference, room);
        const __mmask16 isLight = _mm512_cmpgt_epi32_mask(lightness, _mm512_set1_epi32(one / 2 - 1));
        const __m512i share = product(_mm512_mask_blend_epi32(isLight, lightness, _mm512_sub_epi32(ones, lightness)),
                                      _mm512_mask_blend_epi32(isLight, _mm512_sub_epi32(ones, strength), strength));
        const __m512i low = _mm512_mask_blend_epi32(isLight, share, _mm512_sub_epi32(lightness, share));
        const __m512i width = _mm512_slli_epi32(_mm512_sub_epi32(lightness, low), 1);

        __m512i part = hue;
        __m512i order = places(hueOrder);
        if constexpr (!hasHue) {
            const __m512i middle =
                _mm512_xor_si512(_mm512_xor_si512(_mm512_xor_si512(colors, second), third), _mm512_xor_si512(most, least));
            const __mmask16 isGrey = _mm512_testn_epi32_mask(difference, difference);
            part = quotient(lowBytes(_mm512_sub_epi8(middle, least)), difference);
            __m512i own = _mm512_mask_mov_epi8(places(0), _mm512_cmpeq_epi8_mask(colors, least), places(hslLow * 0x010101));
            own = _mm512_mask_mov_epi8(own, _mm512_cmpeq_epi8_mask(colors, most), places(hslHigh * 0x010101));
            // The lightness of a grey pixel is its hue.
            part = _mm512_mask_blend_epi32(isGrey, part, _mm512_sub_epi32(ones, lightness));
            order = _mm512_mask_blend_epi32(isGrey, own, order);
        }
        const __m512i base = _mm512_add_epi32(times255(low), _mm512_set1_epi32(one / 2));
        const __m512i between = _mm512_srli_epi32(_mm512_add_epi32(base, times255(product(part, width))), 20);
        const __m512i high = _mm512_srli_epi32(_mm512_add_epi32(base, times255(width)), 20);
        const __m512i bytes = _mm512_or_si512(_mm512_or_si512(between, _mm512_slli_epi32(high, 8 * hslHigh)),
                                              _mm512_slli_epi32(_mm512_srli_epi32(base, 20), 8 * hslLow));
        return _mm512_mask_blend_epi8(avx512::colorBytes, pixels, _mm512_shuffle_epi8(bytes, order));
    }
};

MOX_AVX512_INLINE __m512i inAllLanes(std::int64_t number) {
    return _mm512_set1_epi32(static_cast<int>(number));
}

template <bool hasHue, bool hasSaturation> MOX_AVX512 void change(const PixelWork& work, const HslSettings& settings) {
    const std::int64_t hue = settings.hue.value_or(0);
    avx512::runAll(work, Change<hasHue, hasSaturation>{static_cast<int>(hslOrder(hue)), inAllLanes(hslPart(hue)),
                                                       inAllLanes(settings.saturation.value_or(0)),
                                                       inAllLanes(settings.factor.value_or(hslOne))});
}

} // namespace

void hsl512(const PixelWork& work, const HslSettings& settings) {
    if (settings.hue) {
        (settings.saturation ? change<true, true> : change<true, false>)(work, settings);
    } else {
        (settings.saturation ? change<false, true> : change<false, false>)(work, settings);
    }
}

} // namespace mox::server

#endif
