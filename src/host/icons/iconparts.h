// Icons from bitmaps, and bitmaps from icons.
#pragma once

#include "host/graphics/objects.h"

#include <optional>

namespace mox::host {

/// Keeps copies. `color` null: a black and white icon, with its two halves in the mask, one below the other; the image is then
/// monochrome. Else the icon is as large as the mask. Nothing if that leaves no pixels, or if there is no memory.
std::optional<Icon> makeIcon(const Bitmap& mask, const Bitmap* color);

/// The bitmap that such an icon was made from: its mask, with the image below it if that is monochrome; one made from alpha if it
/// has none. Null if there is no memory.
std::shared_ptr<Bitmap> maskBitmapOf(const Icon& icon);
/// Null for a black and white icon, and if there is no memory.
std::shared_ptr<Bitmap> colorBitmapOf(const Icon& icon);

/// True if the image has no colours of its own.
inline bool isBlackAndWhite(const Icon& icon) noexcept {
    return icon.image->isMonochrome();
}

} // namespace mox::host
