// Rectangles in the direction of a line of text: its ground, and the lines below and through it.
#pragma once

#include "host/fonts/typeface.h"
#include "host/graphics/canvas.h"

namespace mox::host {

/// Of one colour, whatever is there.
Paint solidPaint(platform::COLORREF color);

/// In pixels along the text and down from its baseline, from a point on the baseline.
struct TextArea {
    double from = 0;
    double to = 0;
    double top = 0;
    double bottom = 0;
};

bool fillTextArea(Canvas& canvas, const Typeface& typeface, PathPoint baseline, const TextArea& area, platform::COLORREF color,
                  const Region& clip);

} // namespace mox::host
