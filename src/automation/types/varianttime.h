// Dates: days since 1899-12-30, the time of day as the fraction, which counts forward from the day also where the days
// are negative. They reach from the year 100 to 9999.
#pragma once

#include <mox/abi/variant.h>

#include <optional>

namespace mox::automation {

/// Whether a number lies in the range of dates.
bool isDate(double days) noexcept;

/// A whole day and a time of it, which is a fraction from 0 to below 1.
constexpr double withTime(double day, double fraction) noexcept {
    return day < 0 ? day - fraction : day + fraction;
}

/// Nothing for a day that is in no calendar, a time that is on no clock or a year out of range. The day of the week is not
/// looked at.
std::optional<double> dateOf(const SYSTEMTIME& parts) noexcept;

/// The parts of a date, rounded to whole seconds; nothing out of range.
std::optional<SYSTEMTIME> partsOf(double days) noexcept;

} // namespace mox::automation
