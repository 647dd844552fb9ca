// Where drawing ends: the pixels of a bitmap or, with printers, a page.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/graphics/objects.h"
#include "host/graphics/path.h"
#include "host/graphics/region.h"

#include "platform/gditypes.h"

#include <memory>
#include <span>

namespace mox::host {

class Typeface;

/// With what an area is filled.
struct Paint {
    Brush brush{};
    /// Of patterns and hatches, in device pixels.
    POINT origin{};
    std::int32_t rop2 = platform::R2_COPYPEN;
    /// Colours of a monochrome pattern's 0 and 1; the second is also the ground of hatches, unless they are transparent.
    platform::COLORREF textColor = 0;
    platform::COLORREF backColor = 0xFFFFFF;
    bool isTransparent = false;
};

/// With what an outline is drawn. Widths in device pixels.
struct Stroke {
    Pen pen{};
    std::int32_t rop2 = platform::R2_COPYPEN;
    /// Between the dashes, unless transparent.
    platform::COLORREF backColor = 0xFFFFFF;
    bool isTransparent = false;
    double miterLimit = 10;
};

enum class FillRule { alternate, winding };

/// A rectangle whose extents may be negative, which mirrors: it then spans from its corner to the left or upwards.
struct SignedRect {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t cx = 0;
    std::int32_t cy = 0;
    bool operator==(const SignedRect&) const = default;
};

/// A copy of pixels onto a canvas, in device pixels.
struct ImageCopy {
    enum class Kind {
        /// By a raster operation with up to three operands.
        raster,
        /// All pixels but those of one colour.
        transparent,
        /// Mixed by alpha.
        blend,
    };
    Kind kind = Kind::raster;
    SignedRect target;
    /// Null for raster operations without a source.
    std::shared_ptr<const Bitmap> source;
    SignedRect area;
    std::uint32_t rop = platform::SRCCOPY;
    std::int32_t stretchMode = platform::COLORONCOLOR;
    platform::COLORREF transparentColor = 0;
    platform::BLENDFUNCTION blend;
    /// The third operand.
    Paint paint;
    /// What the 0 and 1 of a monochrome source become.
    platform::COLORREF textColor = 0;
    platform::COLORREF backColor = 0xFFFFFF;
    /// The colour of the source that becomes 1 in a monochrome target; all others become 0.
    platform::COLORREF sourceBackColor = 0xFFFFFF;
};

/// Glyphs of one font in a row.
struct TextRun {
    std::shared_ptr<const Typeface> typeface;
    struct Glyph {
        std::uint32_t index = 0;
        /// Of its origin on the baseline, in device pixels.
        PathPoint position;
    };
    std::vector<Glyph> glyphs;
    /// The text that the glyphs show, in UTF-16, one unit a glyph where that is so; for pages whose text can be searched.
    std::u16string text;
    platform::COLORREF color = 0;
};

/// All coordinates are device pixels; `clip` bounds what is changed. A member answers false for what could not be drawn.
class MOX_API Canvas {
public:
    virtual ~Canvas() = default;

    /// What can be drawn on.
    virtual RECT bounds() const = 0;
    /// The pixels, null if there are none.
    virtual std::shared_ptr<Bitmap> bitmap() const { return nullptr; }

    virtual bool fill(const Region& area, const Paint& paint, const Region& clip) = 0;
    virtual bool fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) = 0;
    /// One rectangle, which may be empty.
    virtual bool fillBox(const RECT& box, const Paint& paint, const Region& clip) { return fill(Region(box), paint, clip); }
    /// Lines leave out their last point unless the figure is closed, as one-pixel lines of a device do.
    virtual bool stroke(const Path& path, const Stroke& stroke, const Region& clip) = 0;
    /// One line, without its last point.
    virtual bool line(POINT from, POINT to, const Stroke& stroke, const Region& clip);
    virtual bool copy(const ImageCopy& copy, const Region& clip) = 0;
    virtual bool text(const TextRun& run, const Region& clip) = 0;
    /// `CLR_INVALID` if there are no pixels, or not there.
    virtual platform::COLORREF pixel(POINT point) const = 0;
    virtual platform::COLORREF setPixel(POINT point, platform::COLORREF color) = 0;
};

} // namespace mox::host
