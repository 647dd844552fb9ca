// Areas in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

bool fillRegion(Bitmap& target, const Region& area, const Paint& paint, const Region& clip);
/// Pixels whose centres are inside.
bool fillPath(Bitmap& target, const Path& path, FillRule rule, const Paint& paint, const Region& clip);

} // namespace mox::host
