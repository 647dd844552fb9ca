// Whether the files of a folder have attributes of their own.
#pragma once

#include <cstdint>
#include <string>

namespace mox::host {

/// To ask each file of a folder for its extended attribute costs several times what it costs to read their names, and nearly all
/// files have none. So the folder knows: whoever makes a file hidden or one of the system marks its folder by the extended
/// attribute `user.mox.attributes`. A listing that wants to know which files are hidden looks at each if the folder is marked,
/// has stored attributes itself (as what file servers make has), belongs to another user (who may have had no right to mark it),
/// or if the first of the files has some; else it takes the files as having none. Who asks for a folder or for one file by name,
/// or for more than whether it is hidden or of the system, is told by the file itself in any case.
void markFolder(const std::string& folder);
/// Marks the folder of a file that has or gets attributes that need it.
void markFolderOf(const std::string& file, std::uint32_t attributes);
/// True if the folder is marked or has stored attributes itself.
bool isMarked(const std::string& folder);

} // namespace mox::host
