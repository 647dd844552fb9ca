// Outlines in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

bool strokePath(Bitmap& target, const Path& path, const Stroke& stroke, const Region& clip);

} // namespace mox::host
