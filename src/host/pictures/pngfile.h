// PNG files.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/bitmap.h"

namespace mox::host {

bool isPng(std::span<const std::byte> file) noexcept;
/// As the header says. Throws `ImageError`.
platform::SIZE sizeOfPng(std::span<const std::byte> file);
/// 32 bits with alpha in the fourth byte, not multiplied into the colours; 255 where the file has no alpha. Throws `ImageError`.
MOX_API std::shared_ptr<Bitmap> readPng(std::span<const std::byte> file);
/// 8 bits a channel, without alpha. Throws `ImageError` if there is no memory.
MOX_API std::vector<std::byte> writePng(const Bitmap& bitmap);

} // namespace mox::host
