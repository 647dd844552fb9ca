#include "drawing/pixelroutines/hsl.h"

#include "drawing/pixelroutines/hslvectors.h"

#include <algorithm>

namespace mox::server {

void hsl(const PixelWork& work, const HslChange& change, [[maybe_unused]] Vectors vectors) {
    if (!change.hue && !change.saturation && !change.brightness) {
        // The way there and back changes no colour.
        std::ranges::copy(work.source, work.target.begin());
        return;
    }
    const HslSettings settings(change);
#if defined(__x86_64__)
    if (vectors >= Vectors::avx2) {
        return (vectors >= Vectors::avx512 ? hsl512 : hsl256)(work, settings);
    }
#endif
    std::ranges::transform(work.source, work.target.begin(),
                           [&](std::uint32_t pixel) { return hslPixel(settings, pixel) | (pixel & fourthByte); });
}

} // namespace mox::server
