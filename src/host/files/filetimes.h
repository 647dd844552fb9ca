// Points in time as the operations on files have them.
#pragma once

#include "automation/objects/export.h"
#include "platform/kernel32.h"

#include <cstdint>
#include <ctime>
#include <optional>

namespace mox::host {

// Times count 100 nanoseconds since 1601-01-01. They reach to 2 to the power 63.

/// A time of the system's clock; 0 for one before 1601.
std::uint64_t fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds) noexcept;
/// A time of the system's clock from one of a file; nothing beyond the range.
std::optional<timespec> systemTimeOf(std::uint64_t time) noexcept;

/// Local time from UTC and back. The difference is the one that holds now, with summer time if it is summer now, whatever season
/// `time` lies in. Nothing if a time or the result lies out of range.
MOX_API std::optional<std::uint64_t> localFromUtc(std::uint64_t time) noexcept;
MOX_API std::optional<std::uint64_t> utcFromLocal(std::uint64_t local) noexcept;

/// A date of the calendar from 1601 to 30827; nothing for a date or a time of day that does not exist. The day of the week is not
/// looked at.
MOX_API std::optional<std::uint64_t> fileTimeOf(const platform::SYSTEMTIME& calendar) noexcept;

} // namespace mox::host
