#include "drawing/pixelroutines/hsl.h"

#include "drawing/pixelroutines/hslcolor.h"

#include <algorithm>

namespace mox::server {

void hsl(const PixelWork& work, const HslChange& change, [[maybe_unused]] Vectors vectors) {
    const HslSettings settings(change);
    std::ranges::transform(work.source, work.target.begin(),
                           [&](std::uint32_t pixel) { return hslPixel(settings, pixel) | (pixel & fourthByte); });
}

} // namespace mox::server
