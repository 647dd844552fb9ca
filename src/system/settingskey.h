// Where the settings of an application lie.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// The path of a settings key below the current user: "Software", publisher, application, section, of which any may be empty.
/// Blanks around each and one backslash at either end do not count.
String settingsKey(const String& publisher, const String& application, const String& section);

} // namespace mox::server
