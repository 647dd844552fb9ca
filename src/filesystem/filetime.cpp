#include "filesystem/filetime.h"

#include "platform/kernel32.h"

#include <cmath>

namespace mox::server {

namespace {

/// Cut to whole seconds. A date that stands for a whole second may lie a little below it.
Double wholeSeconds(Double days) {
    constexpr Double secondsPerDay = 86'400;
    constexpr Double inexactness = 5e-6; // of dates of this age, in seconds
    return std::copysign(std::floor(std::abs(days) * secondsPerDay + inexactness) / secondsPerDay, days);
}

} // namespace

std::optional<std::uint64_t> fileTime(Date date) {
    platform::SYSTEMTIME calendar{};
    std::uint64_t local = 0;
    std::uint64_t time = 0;
    const bool isConverted = VariantTimeToSystemTime(wholeSeconds(date.days), &calendar) &&
                             platform::kernel32().SystemTimeToFileTime(calendar, local) &&
                             platform::kernel32().LocalFileTimeToFileTime(local, time);
    return isConverted ? std::optional(time) : std::nullopt;
}

} // namespace mox::server
