// Metafile files of both kinds.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/objects.h"

namespace mox::host {

/// An old-style metafile with the size of its picture.
struct PlacedMetafile {
    OldMetafile metafile;
    /// In hundredths of a millimetre.
    platform::SIZE size;
};

bool isOldMetafile(std::span<const std::byte> file) noexcept;
/// With or without a placeable header. The size of a metafile without it is that of its first window, in pixels of the screen.
/// Every record is checked for its length. Throws `ImageError`.
MOX_API PlacedMetafile readOldMetafile(std::span<const std::byte> file);
/// With a placeable header.
MOX_API std::vector<std::byte> writeOldMetafile(const PlacedMetafile& metafile);

bool isEnhancedMetafile(std::span<const std::byte> file) noexcept;
/// Every record is checked for its length. The file is the records. Throws `ImageError`.
MOX_API EnhancedMetafile readEnhancedMetafile(std::span<const std::byte> file);

} // namespace mox::host
