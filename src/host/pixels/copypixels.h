// Copies of pixels in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

bool copyPixels(Bitmap& target, const ImageCopy& copy, const Region& clip);

} // namespace mox::host
