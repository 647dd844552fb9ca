// Areas in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

bool fillBox(Bitmap& target, const RECT& box, const Paint& paint, const Region& clip);
bool fillRegion(Bitmap& target, const Region& area, const Paint& paint, const Region& clip);
/// Pixels whose centres are inside; of those on an edge the ones to the right of it and below it.
bool fillPath(Bitmap& target, const Path& path, FillRule rule, const Paint& paint, const Region& clip);

} // namespace mox::host
