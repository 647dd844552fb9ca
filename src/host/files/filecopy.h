// Copying and moving.
#pragma once

#include "host/files/files.h"

#include <string_view>

namespace mox::host {

/// Copies a plain file with its attributes and the time of its last change. The copy gets its name when it is complete: one that
/// fails leaves neither a part of itself nor harms a file that has the name already. False for a folder, a file that an opener
/// does not share, a copy onto itself, and a target that is a folder, is open, hidden or write-protected, or exists although
/// `failIfExists` says that it must not.
bool copyFile(const Files& files, std::string_view from, std::string_view to, bool failIfExists);

/// Gives a file or a folder a new name, also in another folder; a file also on another disk, by a copy. False if there is
/// something of that name already, but the thing itself in another case, or if an opener does not let it go. A file on another
/// disk whose original cannot be deleted is there twice then.
bool moveFile(const Files& files, std::string_view from, std::string_view to);

} // namespace mox::host
