#include "host/fonts/glyphreader.h"

#include <cstdint>

namespace mox::host {

namespace {

/// Turned text stands at quarters of a pixel, so that its line does not waver.
constexpr int steps = 4;

/// Positions far outside every surface are as good as any other there.
double bounded(double place) {
    constexpr double most = 1 << 28;
    return place >= -most && place <= most ? place : most;
}

/// The whole number nearest to a place, halves upwards.
std::int64_t nearest(double place) {
    const double moved = place + 0.5;
    const auto whole = static_cast<std::int64_t>(moved);
    return whole - (moved < static_cast<double>(whole) ? 1 : 0);
}

} // namespace

GlyphReader::GlyphReader(const Typeface& typeface) : typeface_(typeface), lock_(typeface.guard_) {
    typeface.trimImages();
}

const Typeface& GlyphReader::source(std::uint32_t glyph) {
    const std::size_t number = glyph >> 24;
    if (number == 0 || number > typeface_.substitutes_.size()) {
        return typeface_;
    }
    const Typeface* const found = typeface_.substitutes_[number - 1].get();
    if (found != other_) {
        otherLock_ = std::unique_lock(found->guard_);
        found->trimImages();
        other_ = found;
    }
    return *found;
}

GlyphReader::Placed GlyphReader::place(std::uint32_t glyph, PathPoint position) {
    if (glyph == Typeface::noGlyph) {
        return {};
    }
    return placeIn(source(glyph), Typeface::numberInSource(glyph), {bounded(position.x), bounded(position.y)});
}

GlyphReader::Placed GlyphReader::placeIn(const Typeface& source, std::uint32_t number, PathPoint position) {
    if (number >= static_cast<std::uint32_t>(source.face_->num_glyphs)) {
        return {};
    }
    const bool hasFractions = source.isTurned() && source.quality_ != TextQuality::plain;
    const int unit = hasFractions ? steps : 1;
    const std::int64_t x = nearest(position.x * unit);
    const std::int64_t y = nearest(position.y * unit);
    // Rounds down, below 0 too.
    const std::int64_t shift = hasFractions ? 2 : 0;
    Placed placed{nullptr, static_cast<int>(x >> shift), static_cast<int>(y >> shift), false};
    const auto fraction = static_cast<std::uint64_t>(hasFractions ? (x & (steps - 1)) * steps + (y & (steps - 1)) : 0);
    GlyphImage* image = nullptr;
    bool isNew = false;
    if (fraction == 0) {
        auto& page = source.images_[number / Typeface::pageSize];
        if (!page) {
            page = std::make_unique<Typeface::ImagePage>();
        }
        auto& entry = (*page)[number % Typeface::pageSize];
        if (!entry) {
            entry = std::make_unique<GlyphImage>();
            isNew = true;
        }
        image = entry.get();
    } else {
        const auto [found, isInserted] = source.placedImages_.try_emplace(std::uint64_t{number} << 8 | fraction);
        image = &found->second;
        isNew = isInserted;
    }
    if (isNew && source.loadOutline(number)) {
        FT_Outline& outline = source.face_->glyph->outline;
        const RECT bounds = outlineBounds(outline);
        if (const auto pixels = std::int64_t{bounds.right - bounds.left} * (bounds.bottom - bounds.top);
            pixels > mostImagePixels) {
            image->channels = 0;
        } else {
            FT_Outline_Translate(&outline, (x & (unit - 1)) * 64 / unit, -((y & (unit - 1)) * 64 / unit));
            *image = renderGlyph(source.face_->glyph->library, outline, source.quality_);
        }
        source.imageBytes_ += sizeof(GlyphImage) + image->coverage.size();
    }
    placed.isLarge = image->channels == 0;
    placed.image = image->width > 0 ? image : nullptr;
    return placed;
}

void GlyphReader::drawLarge(std::uint32_t glyph, PathPoint position, const RECT& clip, const CoverageSpan& span) {
    const Typeface& source = this->source(glyph);
    if (!source.loadOutline(Typeface::numberInSource(glyph))) {
        return;
    }
    FT_Outline& outline = source.face_->glyph->outline;
    const RECT bounds = outlineBounds(outline);
    const double x = bounded(position.x);
    const double y = bounded(position.y);
    if (x + bounds.right < clip.left || x + bounds.left > clip.right || y + bounds.bottom < clip.top ||
        y + bounds.top > clip.bottom) {
        return;
    }
    const bool isPlain = source.quality_ == TextQuality::plain;
    renderSpans(source.face_->glyph->library, outline, {x, y}, clip, [&](int row, int from, int count, std::uint8_t coverage) {
        if (!isPlain || coverage >= 128) {
            span(row, from, count, isPlain ? std::uint8_t{255} : coverage);
        }
    });
}

} // namespace mox::host
