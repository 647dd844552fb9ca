// The folders that every system has.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

#include <string>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// A standard folder but that of the application, with a backslash at its end; empty for a number that stands for none. Errors go
/// to the caller.
std::u16string standardPath(MOX_FS_STDPATH ID);

/// The folder of the program that runs the library, or that of the library where the program is not known. Errors go to the
/// caller.
String applicationPath();

} // namespace mox::server
