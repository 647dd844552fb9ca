#include "host/icons/imagelist.h"

#include "host/icons/drawicon.h"

#include "platform/comctl32.h"
#include "platform/user32.h"

#include <algorithm>

namespace mox::host {

namespace {

/// Opacity stays, and black in the holes of an icon without alpha as well: there it means the ground.
Pixel blended(Pixel pixel, Pixel color, Pixel quarters) {
    Pixel result = pixel & 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= ((pixel >> shift & 0xFF) * (4 - quarters) + (color >> shift & 0xFF) * quarters + 2) / 4 << shift;
    }
    return result;
}

bool blendWith(Icon& icon, platform::COLORREF color, Pixel quarters) {
    const auto image = Bitmap::create(icon.image->width(), icon.image->height());
    if (!image) {
        return false;
    }
    std::vector<Pixel> holes(static_cast<std::size_t>(image->width()));
    for (int y = 0; y < image->height(); ++y) {
        const std::span row(image->pixels(y), holes.size());
        icon.image->read(0, y, row);
        if (icon.mask && !icon.hasAlpha) {
            icon.mask->read(0, y, holes);
        }
        std::ranges::transform(row, holes, row.begin(), [&](Pixel pixel, Pixel hole) {
            return hole != 0 ? pixel : blended(pixel, toPixel(color), quarters);
        });
    }
    icon.image = image;
    return true;
}

} // namespace

std::int32_t ImageList::add(std::shared_ptr<const Icon> icon) {
    const std::lock_guard lock(guard_);
    icons_.push_back(std::move(icon));
    return static_cast<std::int32_t>(icons_.size() - 1);
}

std::shared_ptr<const Icon> ImageList::at(std::int32_t index) const {
    const std::lock_guard lock(guard_);
    return index >= 0 && static_cast<std::size_t>(index) < icons_.size() ? icons_[static_cast<std::size_t>(index)] : nullptr;
}

bool drawListed(DeviceContext& context, const Icon& icon, POINT place, std::uint32_t style, platform::COLORREF highlight) {
    const Pixel quarters = (style & platform::ILD_BLEND50) != 0 ? 2 : (style & platform::ILD_BLEND25) != 0 ? 1 : 0;
    Icon shown = icon;
    if (quarters != 0 && !blendWith(shown, highlight, quarters)) {
        return false;
    }
    return drawIcon(context, shown, {place.x, place.y, icon.image->width(), icon.image->height()}, platform::DI_NORMAL);
}

} // namespace mox::host
