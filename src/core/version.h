// The version of the library.
#pragma once

#include <mox/values.h>

namespace mox::server {

inline constexpr Integer versionMajor = 8;
inline constexpr Integer versionMinor = 10;
inline constexpr Integer versionRevision = 100;

/// The three parts with at least 1, 2 and 4 digits: "8.10.0100".
String versionString();

} // namespace mox::server
