// What files and folders tell alike: times, attributes, the shell's names.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

namespace mox::server {

using namespace TRL_OBKR_MOX;

// Paths are passed on as they are. Errors go to the caller.

/// The three times in local time; 0 for one that cannot be told, all of them if there is no such file.
void readDateTime(const String& path, MOX_FILEDATETIME& times);

/// All attribute bits; 0 if they cannot be read.
MOX_FS_FILEATTRIBUTES readAttributes(const String& path);

/// Sets the archive, hidden, normal, read-only, system and temporary bits; the others are dropped. False if the system refuses.
Boolean writeAttributes(const String& path, MOX_FS_FILEATTRIBUTES attributes);

/// The names that the shell shows; empty if it has none.
String displayName(const String& path);
String typeName(const String& path);

} // namespace mox::server
