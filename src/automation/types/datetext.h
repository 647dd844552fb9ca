// Dates to text and back, with the conventions of US English.
#pragma once

#include "automation/types/shorttext.h"

#include <mox/abi/basetypes.h>

namespace mox::automation {

/// "1/31/2001 3:04:05 PM"; midnight is left out, and so is the day 0. Nothing to write (an empty text) out of range.
ShortText dateText(double date) noexcept;

/// Reads a whole text as a date, a time of day, or both in any order:
/// - month/day/year (or day/month/year where only that is a date), year-month-day, with "/" or "-"; the year may be left
///   out (then it is the present one), or the day (then it is the first); two digits of a year mean 1930 to 2029;
/// - a month by its name or its first three letters, with day and year, also behind the name of a weekday;
/// - hour:minute or hour:minute:second, with a fraction of the second, with AM or PM; or an hour with AM or PM. "T" may
///   stand between date and time.
/// Fails with `DISP_E_TYPEMISMATCH` for any other text, also for a day that no calendar has.
HRESULT readDate(std::u16string_view text, double& date) noexcept;

} // namespace mox::automation
