// Outlines of glyphs to coverage.
#pragma once

#include "host/graphics/path.h"
#include "host/graphics/region.h"

#include <ft2build.h>
#include FT_OUTLINE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace mox::host {

enum class TextQuality : std::uint8_t {
    /// Pixels are set or not.
    plain,
    grey,
    /// Each third of a pixel for itself, red in front.
    subpixel,
};

/// How much of each pixel a glyph covers.
struct GlyphImage {
    /// Of the upper left pixel, from the origin, to the right and down.
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    /// Values of a pixel: 1, or 4 in the order of pixels in memory, for blue, green, red and the fourth byte, which is 0.
    int channels = 1;
    std::vector<std::uint8_t> coverage{};

    const std::uint8_t* row(int y) const noexcept {
        return coverage.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width * channels);
    }
};

/// Outlines larger than this have no images.
inline constexpr long mostImagePixels = 65536;

/// The whole outline in pixels, from the origin, y down.
RECT outlineBounds(const FT_Outline& outline);
/// Changes the outline. Empty if the outline is larger than allowed or is damaged.
GlyphImage renderGlyph(FT_Library library, FT_Outline& outline, TextQuality quality);

/// Given a row, the first pixel, their number and their coverage.
using CoverageSpan = std::function<void(int y, int x, int count, std::uint8_t coverage)>;
/// Hands over what of an outline lies in `clip` without an image between. `origin` is the place of the outline's origin in
/// pixels. Changes the outline.
void renderSpans(FT_Library library, FT_Outline& outline, PathPoint origin, const RECT& clip, const CoverageSpan& span);

} // namespace mox::host
