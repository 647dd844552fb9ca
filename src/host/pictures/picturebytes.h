// The bytes that a picture object is kept as.
//
//   0  MPIC
//   4  version, 1
//   5  kind: 0 none, 1 bitmap, 2 metafile, 3 icon, 4 enhanced metafile
//   6  flags in 16 bits; 1: a bitmap of the device
//   8  width and height in hundredths of a millimetre, 32 bits each
//  16  an image file in the format of its kind
#pragma once

#include "host/pictures/picturecontent.h"

#include <cstddef>
#include <span>
#include <vector>

namespace mox::host {

/// Throws `ImageError`.
std::vector<std::byte> savePictureBytes(const Graphics& graphics, const PictureContent& content);
/// A new handle, the caller's. Throws `ImageError`.
PictureContent loadPictureBytes(Graphics& graphics, std::span<const std::byte> bytes);
/// True if the bytes begin as those of a picture do.
bool isPictureBytes(std::span<const std::byte> bytes) noexcept;

} // namespace mox::host
