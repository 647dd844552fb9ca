#include "host/files/filetimes.h"

#include <chrono>
#include <limits>

namespace mox::host {

namespace {

constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;
constexpr std::int64_t ticksInSecond = 10'000'000;
constexpr std::int64_t nanosecondsInTick = 100;
constexpr std::uint64_t endOfTime = std::numeric_limits<std::int64_t>::max();

/// What local time is ahead of UTC now, in ticks.
std::int64_t presentBias() noexcept {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    tzset(); // not implied by the call below
    return localtime_r(&now, &local) ? local.tm_gmtoff * ticksInSecond : 0;
}

std::optional<std::uint64_t> shifted(std::uint64_t time, std::int64_t ticks) noexcept {
    const std::uint64_t result = time + static_cast<std::uint64_t>(ticks); // below 0 becomes very late
    return time <= endOfTime && result <= endOfTime ? std::optional(result) : std::nullopt;
}

} // namespace

std::uint64_t fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds) noexcept {
    const std::int64_t since1601 = seconds + secondsFrom1601To1970;
    return since1601 < 0 ? 0 : static_cast<std::uint64_t>(since1601 * ticksInSecond + nanoseconds / nanosecondsInTick);
}

std::optional<timespec> systemTimeOf(std::uint64_t time) noexcept {
    if (time > endOfTime) {
        return std::nullopt;
    }
    const auto ticks = static_cast<std::int64_t>(time);
    return timespec{ticks / ticksInSecond - secondsFrom1601To1970, ticks % ticksInSecond * nanosecondsInTick};
}

std::optional<std::uint64_t> localFromUtc(std::uint64_t time) noexcept {
    return shifted(time, presentBias());
}

std::optional<std::uint64_t> utcFromLocal(std::uint64_t local) noexcept {
    return shifted(local, -presentBias());
}

std::optional<std::uint64_t> fileTimeOf(const platform::SYSTEMTIME& calendar) noexcept {
    using namespace std::chrono;
    constexpr unsigned firstYear = 1601;
    constexpr unsigned lastYear = 30827;
    constexpr std::int64_t ticksInMillisecond = ticksInSecond / 1000;
    const year_month_day date(year(calendar.wYear), month(calendar.wMonth), day(calendar.wDay));
    const bool isInYear = calendar.wMonth <= 12 && calendar.wDay <= 31; // the types below hold 8 bits
    const bool isTimeOfDay =
        calendar.wHour < 24 && calendar.wMinute < 60 && calendar.wSecond < 60 && calendar.wMilliseconds < 1000;
    if (calendar.wYear < firstYear || calendar.wYear > lastYear || !isInYear || !date.ok() || !isTimeOfDay) {
        return std::nullopt;
    }
    const std::int64_t hours = sys_days(date).time_since_epoch().count() * std::int64_t{24} + calendar.wHour;
    const std::int64_t seconds = (hours * 60 + calendar.wMinute) * 60 + calendar.wSecond + secondsFrom1601To1970;
    return static_cast<std::uint64_t>(seconds * ticksInSecond + calendar.wMilliseconds * ticksInMillisecond);
}

} // namespace mox::host
