// Dates as times of files.
#pragma once

#include <mox/values.h>

#include <cstdint>
#include <optional>

namespace mox::server {

/// A date in local time as the system keeps it: 100 nanoseconds since 1601-01-01 UTC. The parts of a second are dropped. Nothing
/// for a date that is in no calendar, or that the system does not convert.
std::optional<std::uint64_t> fileTime(Date date);

} // namespace mox::server
