// Which Windows the library runs on.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

namespace mox::server::modMoxHub {

using namespace TRL_OBKR_MOX;

/// The system, its edition and its service pack. Asks the platform once an apartment; as long as it gives `os_UNKNOWN`, the next
/// call asks again. An error ends it with `os_UNKNOWN` and leaves the arguments as they were.
SYS_OS_VERSION GetOSVersion(SYS_OS_VERSION_EX& VersionEx, Integer& spMajor, Integer& spMinor, String& spString) noexcept;

} // namespace mox::server::modMoxHub
