#include "drawing/pixelroutines/hsl.h"

#include "drawing/pixelroutines/hsltables.h"

#include <algorithm>

namespace mox::server {

void hsl(const PixelWork& work, const HslChange& change, [[maybe_unused]] Vectors vectors) {
    const HslSettings settings(change);
#if defined(__x86_64__)
    constexpr std::size_t worthTables = 20'000;
    if (vectors >= Vectors::avx2 && work.source.size() >= worthTables) {
        return hslByTables(work, settings, vectors);
    }
#endif
    std::ranges::transform(work.source, work.target.begin(),
                           [&](std::uint32_t pixel) { return hslPixel(settings, pixel) | (pixel & fourthByte); });
}

} // namespace mox::server
