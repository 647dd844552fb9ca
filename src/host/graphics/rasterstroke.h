// Outlines in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// Pens up to one pixel wide draw one pixel a step along the longer axis. Wider ones are filled outlines without dashes, which
/// cover the pixels whose distance to the line is at most half the width.
bool strokePath(Bitmap& target, const Path& path, const Stroke& stroke, const Region& clip);
bool strokeLine(Bitmap& target, POINT from, POINT to, const Stroke& stroke, const Region& clip);

} // namespace mox::host
