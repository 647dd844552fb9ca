// GIF files.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/bitmap.h"

namespace mox::host {

bool isGif(std::span<const std::byte> file) noexcept;
/// The first picture of a file, as large as the file's screen, in 32 bits. What is transparent is white. Throws `ImageError`.
MOX_API std::shared_ptr<Bitmap> readGif(std::span<const std::byte> file);

} // namespace mox::host
