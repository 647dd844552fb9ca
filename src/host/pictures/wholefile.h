// Files that are read and written as a whole. Paths as programs write them.
#pragma once

#include "host/files/files.h"

#include <cstddef>
#include <span>
#include <vector>

namespace mox::host {

/// Reads all of a file. 0, or the run-time error: 7 for more than are handled as an image, 53 if there is no such file, 75 for
/// what is no file or cannot be read, 76 if its folder does not exist.
std::int32_t readWholeFile(const Files& files, std::string_view path, std::vector<std::byte>& contents);
/// Makes a file, or replaces the one of that name when the new one is complete. 0, or the run-time error: 61 on a full disk, 70
/// if somebody has the file open, 75 for a folder, a write-protected file or one that cannot be written, 76 if its folder does
/// not exist. Then nothing has changed.
std::int32_t writeWholeFile(const Files& files, std::string_view path, std::span<const std::byte> contents);

} // namespace mox::host
