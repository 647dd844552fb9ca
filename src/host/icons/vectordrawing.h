// Small drawings described by outlines.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/bitmap.h"

#include <span>
#include <string_view>

namespace mox::host {

/// An area of one colour, or of one that changes evenly from the top of the area to its bottom.
struct DrawnArea {
    /// Figures on a grid of 32 by 32, words and numbers with a space between them:
    ///   M x y, L x y, C x y x y x y, Z   an outline: begin, line, curve with two control points, end where it began
    ///   O x y r                          a circle
    ///   R x y x y r                      a rectangle by two corners, with rounded ones
    ///   W w                              outlines from here on are lines of that width with round ends; 0: filled
    /// What several figures cover is one area.
    std::string_view figures;
    /// 0xAARRGGBB.
    Pixel top = 0;
    Pixel bottom = 0;
};

/// The areas one over the other in a bitmap with alpha, not multiplied in. Edges are smooth. Throws `std::invalid_argument` for
/// figures that cannot be read; null if there is no memory.
MOX_API std::shared_ptr<Bitmap> drawAreas(std::span<const DrawnArea> areas, int width, int height);

} // namespace mox::host
