// Which program uses the library.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// The path of the executable of this process; its bare file name if the process may not be opened; empty if it is not found at
/// all.
String usedByApp();

} // namespace mox::server
