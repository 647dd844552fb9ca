// The pixels of icons in other sizes.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// What of `image` (32 bits, alpha not multiplied in) falls into `part` of the surface when all of it fills `target`, mirrored if
/// its extents are negative. `part` has to lie in `target`. The mean of the pixels that come together where it gets smaller, a
/// mixture of neighbours where it gets larger. The colours have alpha multiplied in. Null if there is no memory.
std::shared_ptr<Bitmap> scaledPart(const Bitmap& image, const SignedRect& target, const RECT& part);

/// All of it in another size, alpha not multiplied in.
std::shared_ptr<Bitmap> resized(const Bitmap& image, int width, int height);

/// The pixels that such a target covers.
RECT areaOf(const SignedRect& target) noexcept;

} // namespace mox::host
