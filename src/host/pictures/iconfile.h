// Icon and cursor files.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/objects.h"

namespace mox::host {

bool isIconFile(std::span<const std::byte> file) noexcept;
/// The image whose size is the nearest to `size`, the one with most colours among those. Throws `ImageError`.
MOX_API Icon readIconFile(std::span<const std::byte> file, platform::SIZE size = {32, 32});
/// A file with one image, of 32 bits with alpha, of 24 bits, or of 1 bit for an icon without colours. A cursor becomes a file of
/// cursors. Throws `ImageError` for one that is larger than such files can hold.
MOX_API std::vector<std::byte> writeIconFile(const Icon& icon);

} // namespace mox::host
