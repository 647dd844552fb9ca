// Glyphs in the pixels of a bitmap.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/canvas.h"

namespace mox::host {

MOX_API bool drawGlyphs(Bitmap& target, const TextRun& run, const Region& clip);

} // namespace mox::host
