// JPEG files.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/bitmap.h"

namespace mox::host {

bool isJpeg(std::span<const std::byte> file) noexcept;
/// 32 bits; grey, colour and CMYK files. Throws `ImageError`, also for a file that ends early.
MOX_API std::shared_ptr<Bitmap> readJpeg(std::span<const std::byte> file);

} // namespace mox::host
