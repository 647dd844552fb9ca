// Copies of pixels in the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// Copies within the target and the clip; cost depends on what is visible, not on the extents of the copy. Pixels of the target
/// whose pixels in the source are outside of it stay as they are. The source may be the target. False if there is no source,
/// though one is needed, no memory, or a place or an extent is beyond 2^29; then nothing is changed.
///
/// Raster operations work on the numbers that the target holds; where a table gives them any colours, on those colours, so that
/// masks of black and white do what they are for. Of plain pixels the fourth byte
/// takes part like the others if there is a source, whose fourth byte is 0 unless somebody put something there; without a source
/// it stays. Where a brush that draws nothing is needed, nothing is done; the ground of a hatch, if it is transparent, leaves
/// what is there.
///
/// Stretching takes the source's pixel at the centre of the target's (`COLORONCOLOR`); combines those that would be left out by
/// AND or OR (`BLACKONWHITE`, `WHITEONBLACK`, for raster operations only, else as `COLORONCOLOR`); or takes the mean of the area
/// (`HALFTONE`, also when it enlarges, which gives plain blocks for whole factors), halves rounded upwards. Transparent copies
/// always take the pixel at the centre.
///
/// Blending: for a constant alpha t = source * alpha + target * (255 - alpha) for each of the four bytes, and the result is t /
/// 255 rounded to the nearest, (t + 128 + ((t + 128) >> 8)) >> 8. With `AC_SRC_ALPHA` the source is first multiplied by the
/// constant alpha / 255, rounded like that, and then source + target * (255 - alpha of the source) / 255, the product rounded
/// like that, the sum at most 255.
bool copyPixels(Bitmap& target, const ImageCopy& copy, const Region& clip);

} // namespace mox::host
