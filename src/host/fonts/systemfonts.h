// The fonts and sizes of captions, menus and messages.
#pragma once

#include "host/machine/machineconfig.h"

#include "platform/user32.h"

namespace mox::host {

/// As the version of the system has them, at 96 dots per inch.
platform::LOGFONTA iconTitleFont(const WindowsVersion& version);
platform::NONCLIENTMETRICSA nonClientMetrics(const WindowsVersion& version);

} // namespace mox::host
