#include "automation/types/varianttime.h"

#include <mox/abi/functions.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace mox::automation {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;
using namespace std::chrono_literals;

constexpr sys_days dayZero{year_month_day{1899y, std::chrono::December, 30d}};
constexpr sys_days firstDay{year_month_day{100y, std::chrono::January, 1d}};
constexpr sys_days lastDay{year_month_day{9999y, std::chrono::December, 31d}};
constexpr int secondsOfDay = 86'400;

} // namespace

bool isDate(double value) noexcept {
    constexpr double first = (firstDay - dayZero).count();
    constexpr double last = (lastDay - dayZero).count();
    return value > first - 1 && value < last + 1;
}

std::optional<double> dateOf(const SYSTEMTIME& parts) noexcept {
    // The calendar's types hold a byte of the month and of the day.
    if (parts.wYear > 9999 || parts.wMonth > 12 || parts.wDay > 31) {
        return std::nullopt;
    }
    const year_month_day date{std::chrono::year(parts.wYear), std::chrono::month(parts.wMonth), std::chrono::day(parts.wDay)};
    if (!date.ok() || sys_days(date) < firstDay || parts.wHour > 23 || parts.wMinute > 59 || parts.wSecond > 59 ||
        parts.wMilliseconds > 999) {
        return std::nullopt;
    }
    const int day = (sys_days(date) - dayZero).count();
    const int milliseconds = ((parts.wHour * 60 + parts.wMinute) * 60 + parts.wSecond) * 1000 + parts.wMilliseconds;
    return withTime(day, milliseconds / (secondsOfDay * 1000.0));
}

std::optional<SYSTEMTIME> partsOf(double value) noexcept {
    if (!isDate(value)) {
        return std::nullopt;
    }
    const double wholeDays = std::trunc(value);
    sys_days day = dayZero + days(static_cast<int>(wholeDays));
    int seconds = static_cast<int>(std::lround(std::fabs(value - wholeDays) * secondsOfDay));
    if (seconds == secondsOfDay && day < lastDay) {
        seconds = 0;
        day += days(1);
    }
    seconds = std::min(seconds, secondsOfDay - 1); // the last half second that there is has nothing to round up to
    const year_month_day date(day);
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    parts.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    parts.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    parts.wDayOfWeek = static_cast<WORD>(std::chrono::weekday(day).c_encoding());
    parts.wHour = static_cast<WORD>(seconds / 3600);
    parts.wMinute = static_cast<WORD>(seconds / 60 % 60);
    parts.wSecond = static_cast<WORD>(seconds % 60);
    return parts;
}

} // namespace mox::automation

using namespace mox::automation;

INT SystemTimeToVariantTime(const SYSTEMTIME* lpSystemTime, DOUBLE* pvtime) {
    if (!lpSystemTime || !pvtime) {
        return 0;
    }
    const std::optional<double> date = dateOf(*lpSystemTime);
    *pvtime = date.value_or(0);
    return date.has_value();
}

INT VariantTimeToSystemTime(DOUBLE vtime, SYSTEMTIME* lpSystemTime) {
    if (!lpSystemTime) {
        return 0;
    }
    const std::optional<SYSTEMTIME> parts = partsOf(vtime);
    *lpSystemTime = parts.value_or(SYSTEMTIME{});
    return parts.has_value();
}
