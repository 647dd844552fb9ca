#include "values/urlvector.h"

#if defined(__x86_64__)
#include <array>
#include <tmmintrin.h>
#endif

namespace mox::server {

#if defined(__x86_64__)

namespace {

/// Where the characters of four escapes come from. The source has four rows of four bytes: the codes, their high digits, their
/// low digits, and "%".
struct Selection {
    alignas(16) std::array<Byte, 16> bytes{};
    std::size_t length = 0;
};

/// By the set of codes that stay as they are, a bit each.
constexpr std::array<Selection, 16> selections = [] {
    constexpr unsigned highDigits = 4;
    constexpr unsigned lowDigits = 8;
    constexpr unsigned percent = 12;
    std::array<Selection, 16> table{};
    for (unsigned unescaped = 0; unescaped < table.size(); ++unescaped) {
        Selection& selection = table[unescaped];
        const auto add = [&](unsigned from) { selection.bytes[selection.length++] = static_cast<Byte>(from); };
        for (unsigned code = 0; code < 4; ++code) {
            if (unescaped >> code & 1) {
                add(code);
            } else {
                add(percent + code);
                add(highDigits + code);
                add(lowDigits + code);
            }
        }
    }
    return table;
}();

/// All bits of a byte where it lies from `first` to `last`. Bytes compare as signed numbers, so both are moved down by half the
/// range.
__attribute__((target("ssse3"))) inline __m128i between(__m128i bytes, char first, char last) {
    const __m128i moved = _mm_sub_epi8(bytes, _mm_set1_epi8(static_cast<char>(first + 128)));
    return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(last - first + 1 - 128)));
}

__attribute__((target("ssse3"))) UrlProgress encode(std::span<const Byte> codes, bool plusForSpace, char16_t* result,
                                                    const char16_t* limit) {
    constexpr std::size_t atOnce = 16;
    constexpr std::ptrdiff_t most = 3 * atOnce + 4; // what four groups of four codes may write, and write over
    const __m128i digits = _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F');
    const __m128i lowBits = _mm_set1_epi8(0x0F);
    const __m128i percents = _mm_set1_epi8('%');
    const __m128i plus = _mm_set1_epi8(plusForSpace ? '+' : ' ');
    UrlProgress progress{0, result};
    while (codes.size() - progress.codes >= atOnce && limit - progress.end >= most) {
        __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(codes.data() + progress.codes));
        const __m128i isSpace = _mm_cmpeq_epi8(block, _mm_set1_epi8(' '));
        const __m128i letters = between(_mm_or_si128(block, _mm_set1_epi8(0x20)), 'a', 'z');
        __m128i stays = _mm_or_si128(letters, between(block, '0', '9'));
        if (plusForSpace) {
            stays = _mm_or_si128(stays, isSpace);
            block = _mm_or_si128(_mm_andnot_si128(isSpace, block), _mm_and_si128(isSpace, plus));
        }
        auto unescaped = static_cast<unsigned>(_mm_movemask_epi8(stays));
        const __m128i high = _mm_shuffle_epi8(digits, _mm_and_si128(_mm_srli_epi16(block, 4), lowBits));
        const __m128i low = _mm_shuffle_epi8(digits, _mm_and_si128(block, lowBits));
        // Rows of four to the side of each other: codes, high digits, low digits, percents.
        const __m128i codesAndHigh[] = {_mm_unpacklo_epi32(block, high), _mm_unpackhi_epi32(block, high)};
        const __m128i lowAndPercents[] = {_mm_unpacklo_epi32(low, percents), _mm_unpackhi_epi32(low, percents)};
        for (unsigned group = 0; group < 4; ++group, unescaped >>= 4) {
            const __m128i source = group & 1 ? _mm_unpackhi_epi64(codesAndHigh[group / 2], lowAndPercents[group / 2])
                                             : _mm_unpacklo_epi64(codesAndHigh[group / 2], lowAndPercents[group / 2]);
            const Selection& selection = selections[unescaped & 0xF];
            const __m128i escapes =
                _mm_shuffle_epi8(source, _mm_load_si128(reinterpret_cast<const __m128i*>(selection.bytes.data())));
            auto* const place = reinterpret_cast<__m128i*>(progress.end);
            _mm_storeu_si128(place, _mm_unpacklo_epi8(escapes, _mm_setzero_si128()));
            _mm_storeu_si128(place + 1, _mm_unpackhi_epi8(escapes, _mm_setzero_si128()));
            progress.end += selection.length;
        }
        progress.codes += atOnce;
    }
    return progress;
}

} // namespace

UrlProgress encodeManyForUrl(std::span<const Byte> codes, bool plusForSpace, char16_t* result, const char16_t* limit) {
    return __builtin_cpu_supports("ssse3") ? encode(codes, plusForSpace, result, limit) : UrlProgress{0, result};
}

#else

UrlProgress encodeManyForUrl(std::span<const Byte>, bool, char16_t* result, const char16_t*) {
    return {0, result};
}

#endif

} // namespace mox::server
