// Pictures in PNG files.
#pragma once

#include "host/graphics/bitmap.h"

#include <filesystem>

namespace mox::host {

/// In 32 bits with alpha, not multiplied in. Null for a file that is none, is damaged, or is larger than an icon may be, and if
/// there is no memory.
std::shared_ptr<Bitmap> readPng(const std::filesystem::path& file);

} // namespace mox::host
