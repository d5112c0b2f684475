#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A day of the proleptic Gregorian calendar (ISO 8601), which has a year 0.
struct CalendarDay {
    Uint32 year;
    Uint32 month;  ///< 1 to 12
    Uint32 day;    ///< 1 to 31
};

Uint32 daysInMonth(Uint32 year, Uint32 month);

/// Days since the first day of the year 0.
Uint32 toDayNumber(const CalendarDay& date);
CalendarDay fromDayNumber(Uint32 dayNumber);

}  // namespace Pegasus
