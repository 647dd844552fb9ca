// The pattern operand of raster operations.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// A brush as rows of plain pixels. For a monochrome target they are black and white: of a colour the one nearer to it, of a
/// monochrome pattern its bits as they are.
class PaintRows {
public:
    /// `paint` has to outlive it.
    PaintRows(const Paint& paint, bool isForMonochrome);

    /// A brush that draws nothing.
    bool isNothing() const noexcept { return paint_.brush.style == platform::BS_NULL; }
    /// True if some pixels leave what is there alone: the ground of a hatch that is transparent.
    bool hasHoles() const noexcept { return paint_.brush.style == platform::BS_HATCHED && paint_.isTransparent; }
    bool isHole(int x, int y) const noexcept { return hasHoles() && !isLine(x, y); }

    /// `count` pixels from `x` on, valid until the next call.
    const Pixel* row(int x, int y, std::size_t count);

private:
    bool isLine(int x, int y) const noexcept;
    Pixel shown(platform::COLORREF color) const noexcept;
    void readPattern(int y);

    const Paint& paint_;
    const bool isForMonochrome_;
    std::vector<Pixel> row_;
    std::vector<Pixel> pattern_;
};

} // namespace mox::host
