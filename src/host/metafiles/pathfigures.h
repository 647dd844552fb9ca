// Paths changed as the records of metafiles want it.
#pragma once

#include "host/graphics/canvas.h"
#include "host/graphics/path.h"
#include "host/graphics/region.h"

namespace mox::host {

/// The same with every figure closed.
Path closedFigures(const Path& path);
/// By the same distance along both axes.
Path moved(const Path& path, double distance);
/// True if every figure is closed.
bool isClosed(const Path& path);
/// The pixels whose centres are inside, as far as they lie in `bounds`.
Region regionOf(const Path& path, FillRule rule, const RECT& bounds);

} // namespace mox::host
