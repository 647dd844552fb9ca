#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/regiondata.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;
constexpr std::uint32_t paletteColors = 1;
constexpr std::uint32_t operationMask = 0xFFFFFF;
constexpr std::uint32_t codeMask = 0xFF0000;

/// Where a mask is 1, in its own pixels, as far as it lies in an area.
std::vector<RECT> onesOf(const Bitmap& mask, const RECT& area) {
    std::vector<RECT> ones;
    const RECT part = intersection(area, mask.bounds());
    std::vector<Pixel> row(static_cast<std::size_t>(part.right - part.left));
    for (std::int32_t y = part.top; y < part.bottom; ++y) {
        mask.read(part.left, y, row);
        for (auto from = row.begin();;) {
            const auto isOne = [](Pixel pixel) { return (pixel & operationMask) != 0; };
            from = std::find_if(from, row.end(), isOne);
            const auto to = std::find_if_not(from, row.end(), isOne);
            if (from == to) {
                break;
            }
            const auto place = [&](auto at) { return part.left + static_cast<std::int32_t>(at - row.begin()); };
            ones.push_back({place(from), y, place(to), y + 1});
            from = to;
        }
    }
    return ones;
}

} // namespace

bool EnhancedPlayer::maskBlt(RecordReader& record) {
    record.skip(boundsSize);
    const POINT to = record.point();
    const SIZE extent = record.size32();
    const SignedRect target{to.x, to.y, extent.cx, extent.cy};
    // The operation where the mask is 1; the code of the other one stands in the highest byte.
    const std::uint32_t rop = record.u32();
    const POINT from = record.point();
    const Source source = readSource(record);
    const POINT maskFrom = record.point();
    const bool usesPalette = record.u32() == paletteColors;
    const auto mask = readBitmap(record, usesPalette);
    const SignedRect area{from.x, from.y, target.cx, target.cy};
    return mask ? copyMasked(target, source, area, *mask, maskFrom, rop) : copyBitmap(target, source, area, rop & operationMask);
}

bool EnhancedPlayer::copyMasked(const SignedRect& target, const Source& source, const SignedRect& from, const Bitmap& mask,
                                POINT maskFrom, std::uint32_t rop) {
    if (target.cx <= 0 || target.cy <= 0 || !stage_.target().toDevice().keepsAxes()) {
        return false;
    }
    std::vector<RECT> ones = onesOf(mask, {maskFrom.x, maskFrom.y, maskFrom.x + target.cx, maskFrom.y + target.cy});
    for (RECT& one : ones) {
        const std::int32_t dx = target.x - maskFrom.x;
        const std::int32_t dy = target.y - maskFrom.y;
        one = stage_.toPixels({one.left + dx, one.top + dy, one.right + dx, one.bottom + dy}).bounds();
    }
    const Region part = united(ones);
    Region rest = stage_.toPixels({target.x, target.y, target.x + target.cx, target.y + target.cy});
    rest.subtract(part);
    // Both operations, each clipped to its part.
    const std::optional<Region> before = stage_.state().clip;
    const auto copyWithin = [&](const Region& within, std::uint32_t operation) {
        Region clip = before ? *before : Region(stage_.target().canvas().bounds());
        clip.intersect(within);
        stage_.state().clip = clip;
        return copyBitmap(target, source, from, operation);
    };
    const bool isDrawn = copyWithin(part, rop & operationMask);
    const bool isRestDrawn = copyWithin(rest, rop >> 8 & codeMask);
    stage_.state().clip = before;
    return isDrawn && isRestDrawn;
}

} // namespace mox::host
