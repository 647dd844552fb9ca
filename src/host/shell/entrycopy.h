// Copies of single entries of a folder.
#pragma once

#include <string>

namespace mox::host {

// Each gives false with `errno` set if it fails; then nothing new is in the folder of the target, and what was there is as it
// was. With `replace` the copy takes the place of a file; without, an existing target is an error (EEXIST). Times, permission
// bits and the extended attributes of the user come along, where the disk of the target keeps them.

/// Copies a file. It appears under its name only when it is whole.
bool copyFile(const std::string& from, const std::string& to, bool replace);
/// Copies a link as a link.
bool copyLink(const std::string& from, const std::string& to, bool replace);
/// Gives a folder the times, the permission bits and the attributes of another one.
bool copyFolderFacts(const std::string& from, const std::string& to);

/// Renames within a disk; without `replace` never onto something that exists.
bool renameEntry(const std::string& from, const std::string& to, bool replace);

} // namespace mox::host
