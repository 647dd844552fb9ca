// Image files of every format.
#pragma once

#include "host/pictures/imagebytes.h"
#include "host/pictures/metafilefile.h"

#include "automation/objects/export.h"

#include <variant>

namespace mox::host {

/// What an image file holds.
using Image = std::variant<std::shared_ptr<Bitmap>, Icon, PlacedMetafile, EnhancedMetafile>;

/// Reads BMP, ICO, CUR, WMF, EMF, PNG, JPEG and GIF, by what is in the file. Bitmaps are opaque: alpha is mixed with white.
/// Throws `ImageError`.
MOX_API Image readImage(std::span<const std::byte> file);
/// The same as pixels; an icon is shown on white. Throws `ImageError` for metafiles.
MOX_API std::shared_ptr<Bitmap> readBitmap(std::span<const std::byte> file);
/// In the format of its kind: BMP, ICO or CUR, WMF, EMF. Throws `ImageError`.
MOX_API std::vector<std::byte> writeImage(const Image& image);

/// An icon on white. Throws `ImageError` if there is no memory.
MOX_API std::shared_ptr<Bitmap> flattened(const Icon& icon);

} // namespace mox::host
