// The images of a typeface's glyphs, for one who draws them.
#pragma once

#include "host/fonts/typeface.h"

#include <mutex>

namespace mox::host {

/// Holds the typeface for its thread as long as it lives; images stay valid as long.
class GlyphReader {
public:
    explicit GlyphReader(const Typeface& typeface);
    GlyphReader(const GlyphReader&) = delete;
    GlyphReader& operator=(const GlyphReader&) = delete;

    /// An image and the pixel of its origin. The image is null for what draws nothing or has no image.
    struct Placed {
        const GlyphImage* image = nullptr;
        int x = 0;
        int y = 0;
        /// True for what is too large for an image; `drawLarge` draws it.
        bool isLarge = false;
    };
    Placed place(std::uint32_t glyph, PathPoint position);
    void drawLarge(std::uint32_t glyph, PathPoint position, const RECT& clip, const CoverageSpan& span);

private:
    static Placed placeIn(const Typeface& source, std::uint32_t number, PathPoint position);
    /// The typeface of a glyph, held from now on.
    const Typeface& source(std::uint32_t glyph);

    const Typeface& typeface_;
    std::unique_lock<std::mutex> lock_;
    const Typeface* other_ = nullptr;
    std::unique_lock<std::mutex> otherLock_;
};

} // namespace mox::host
