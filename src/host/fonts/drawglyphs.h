// Glyphs in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

bool drawGlyphs(Bitmap& target, const TextRun& run, const Region& clip);

} // namespace mox::host
