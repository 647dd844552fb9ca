// The statements of Visual Basic that change files.
#pragma once

#include "host/files/files.h"

#include <cstdint>
#include <string_view>

namespace mox::host {

/// The run-time error for a path that leads nowhere: 52 for what no name can have, 76 if the folder in front of the last name
/// does not exist, else 75.
std::int32_t errorOfPath(const Files& files, std::string_view path);

// Each gives 0, or the number of the run-time error that the statement raises.

/// `MkDir`: 76 if the folder in front of the last name does not exist, 75 if there is something of that name or the system
/// refuses, 52 for a name that no file can have.
std::int32_t makeFolder(const Files& files, std::string_view folder);

/// `Kill`: deletes the files, not the folders, that match a pattern. Hidden files and those of the system do not count as found.
/// 53 if there is none, 55 for one that an opener does not let go, 76 if their folder does not exist, 75 for a write-protected
/// file; it stops at the first file that cannot be deleted.
std::int32_t killFiles(const Files& files, std::string_view pattern);

/// `Open ... For Binary`, and `Close`: makes an empty file if there is none. 76 if its folder does not exist, 75 for a folder or
/// if the system refuses; a file that may only be read is opened for reading.
std::int32_t touchFile(const Files& files, std::string_view file);

} // namespace mox::host
