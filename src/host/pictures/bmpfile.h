// Bitmap files.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/bitmap.h"

namespace mox::host {

bool isBmp(std::span<const std::byte> file) noexcept;
/// All depths, also packed ones, from the top down and with the short header. The bitmap is a section of the file's depth. Throws
/// `ImageError`.
MOX_API std::shared_ptr<Bitmap> readBmp(std::span<const std::byte> file);
/// In the bitmap's own depth.
MOX_API std::vector<std::byte> writeBmp(const Bitmap& bitmap);

} // namespace mox::host
