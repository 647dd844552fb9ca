#include "host/fonts/drawglyphs.h"

#include "host/fonts/glyphreader.h"

#include <algorithm>
#include <array>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace mox::host {

namespace {

/// 0 to 255 as 0 to 256.
constexpr std::uint32_t partOf(std::uint8_t coverage) {
    return coverage + (coverage >> 7);
}

/// The coverage of the channels of a pixel, counted from red.
struct Grey {
    static constexpr int channels = 1;
    static std::uint8_t of(const std::uint8_t* coverage, int) noexcept { return *coverage; }
};
struct Thirds {
    static constexpr int channels = 4;
    static std::uint8_t of(const std::uint8_t* coverage, int channel) noexcept { return coverage[2 - channel]; }
};

/// The fourth byte of the ground stays.
template <class Kind> Pixel mixed(Pixel ground, Pixel color, const std::uint8_t* coverage) noexcept {
    Pixel result = ground & 0xFF000000;
    for (int channel = 0; channel < 3; ++channel) {
        const int shift = 16 - 8 * channel;
        const std::uint32_t part = partOf(Kind::of(coverage, channel));
        result |= ((ground >> shift & 0xFF) * (256 - part) + (color >> shift & 0xFF) * part) >> 8 << shift;
    }
    return result;
}

#ifdef __SSE2__
/// The same for four pixels at a time, whose channels are numbers of 16 bits.
class FourPixels {
public:
    explicit FourPixels(Pixel color) noexcept
        : color_(_mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), _mm_setzero_si128())) {}

    void mix(Pixel* target, const std::uint8_t* coverage, Grey) const noexcept {
        std::uint32_t four = 0;
        std::memcpy(&four, coverage, sizeof four);
        if (four != 0) {
            const __m128i wide = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(four)), _mm_setzero_si128());
            const __m128i parts = _mm_add_epi16(wide, _mm_srli_epi16(wide, 7));
            const __m128i pairs = _mm_unpacklo_epi16(parts, parts);
            mixParts(target, _mm_shuffle_epi32(pairs, _MM_SHUFFLE(1, 1, 0, 0)),
                     _mm_shuffle_epi32(pairs, _MM_SHUFFLE(3, 3, 2, 2)));
        }
    }
    void mix(Pixel* target, const std::uint8_t* coverage, Thirds) const noexcept {
        const __m128i values = _mm_loadu_si128(reinterpret_cast<const __m128i*>(coverage));
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(values, _mm_setzero_si128())) == 0xFFFF) {
            return;
        }
        const auto parts = [](__m128i wide) { return _mm_add_epi16(wide, _mm_srli_epi16(wide, 7)); };
        mixParts(target, parts(_mm_unpacklo_epi8(values, _mm_setzero_si128())),
                 parts(_mm_unpackhi_epi8(values, _mm_setzero_si128())));
    }

    /// One pixel, whose coverage is in its own order.
    void mixOne(Pixel* target, std::uint32_t coverage) const noexcept {
        if (coverage != 0) {
            const auto wide = [](std::uint32_t value) {
                return _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(value)), _mm_setzero_si128());
            };
            const __m128i parts = wide(coverage);
            const __m128i mixed = mixTwo(wide(*target), _mm_add_epi16(parts, _mm_srli_epi16(parts, 7)));
            *target = static_cast<Pixel>(_mm_cvtsi128_si32(_mm_packus_epi16(mixed, mixed)));
        }
    }

private:
    void mixParts(Pixel* target, __m128i first, __m128i second) const noexcept {
        auto* const place = reinterpret_cast<__m128i*>(target);
        const __m128i ground = _mm_loadu_si128(place);
        _mm_storeu_si128(place, _mm_packus_epi16(mixTwo(_mm_unpacklo_epi8(ground, _mm_setzero_si128()), first),
                                                 mixTwo(_mm_unpackhi_epi8(ground, _mm_setzero_si128()), second)));
    }
    __m128i mixTwo(__m128i ground, __m128i parts) const noexcept {
        const __m128i own = _mm_and_si128(parts, _mm_set1_epi64x(0x0000FFFFFFFFFFFF));
        const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(256), own);
        return _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(ground, rest), _mm_mullo_epi16(color_, own)), 8);
    }

    __m128i color_;
};
#endif

template <class Kind> void blendPixels(Pixel* target, const std::uint8_t* coverage, int count, Pixel color) noexcept {
    int x = 0;
#ifdef __SSE2__
    const FourPixels four(color);
    for (; x + 4 <= count; x += 4, coverage += 4 * Kind::channels) {
        four.mix(target + x, coverage, Kind());
    }
    for (; x < count; ++x, coverage += Kind::channels) {
        if constexpr (Kind::channels == 1) {
            four.mixOne(target + x, *coverage * 0x010101U);
        } else {
            std::uint32_t own = 0;
            std::memcpy(&own, coverage, sizeof own);
            four.mixOne(target + x, own);
        }
    }
#endif
    for (; x < count; ++x, coverage += Kind::channels) {
        target[x] = mixed<Kind>(target[x], color, coverage);
    }
}

void blend(Pixel* target, const std::uint8_t* coverage, int channels, int count, Pixel color) {
    if (channels == Thirds::channels) {
        blendPixels<Thirds>(target, coverage, count, color);
    } else {
        blendPixels<Grey>(target, coverage, count, color);
    }
}

/// Pixels of other formats are mixed as plain ones and stored again.
void blendRow(Bitmap& target, int x, int y, const std::uint8_t* coverage, int channels, int count, Pixel color) {
    if (target.isPlain()) {
        blend(target.pixels(y) + x, coverage, channels, count, color);
        return;
    }
    std::array<Pixel, 256> pixels;
    for (int done = 0; done < count;) {
        const int some = std::min(count - done, static_cast<int>(pixels.size()));
        const std::span part(pixels.data(), static_cast<std::size_t>(some));
        target.read(x + done, y, part);
        blend(part.data(), coverage + static_cast<std::ptrdiff_t>(done) * channels, channels, some, color);
        target.write(x + done, y, part);
        done += some;
    }
}

void drawImage(Bitmap& target, const GlyphReader::Placed& placed, const pixman_box32_t& box, Pixel color) {
    const GlyphImage& image = *placed.image;
    const int left = placed.x + image.left;
    const int top = placed.y + image.top;
    const int fromX = std::max(left, box.x1);
    const int toX = std::min(left + image.width, box.x2);
    const int fromY = std::max(top, box.y1);
    const int toY = std::min(top + image.height, box.y2);
    if (fromX >= toX) {
        return;
    }
    for (int y = fromY; y < toY; ++y) {
        blendRow(target, fromX, y, image.row(y - top) + static_cast<std::ptrdiff_t>(fromX - left) * image.channels,
                 image.channels, toX - fromX, color);
    }
}

void drawSpan(Bitmap& target, int y, int x, int count, std::uint8_t coverage, Pixel color) {
    std::array<std::uint8_t, 256> row;
    row.fill(coverage);
    for (int done = 0; done < count;) {
        const int some = std::min(count - done, static_cast<int>(row.size()));
        blendRow(target, x + done, y, row.data(), 1, some, color);
        done += some;
    }
}

} // namespace

bool drawGlyphs(Bitmap& target, const TextRun& run, const Region& clip) {
    if (!run.typeface) {
        return false;
    }
    const Region* area = &clip;
    Region inside;
    if (const RECT bounds = clip.bounds(); intersection(bounds, target.bounds()) != bounds) {
        inside = clip;
        inside.intersect(target.bounds());
        area = &inside;
    }
    const Pixel color = toPixel(run.color) & 0xFFFFFF;
    GlyphReader reader(*run.typeface);
    for (const TextRun::Glyph& glyph : run.glyphs) {
        const auto placed = reader.place(glyph.index, glyph.position);
        for (const pixman_box32_t& box : area->boxes()) {
            if (placed.image) {
                drawImage(target, placed, box, color);
            } else if (placed.isLarge) {
                reader.drawLarge(
                    glyph.index, glyph.position, {box.x1, box.y1, box.x2, box.y2},
                    [&](int y, int x, int count, std::uint8_t coverage) { drawSpan(target, y, x, count, coverage, color); });
            }
        }
    }
    return true;
}

} // namespace mox::host
