#include "cimxml/common/Calendar.h"

namespace Pegasus {

namespace {

constexpr Uint32 kDaysPerEra = 146097;  // an era is 400 years

bool isLeapYear(Uint32 year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// Days from the start of the year 0 to the start of `year`.
Uint32 daysBeforeYear(Uint32 year) {
    if (year == 0) {
        return 0;
    }
    const Uint32 last = year - 1;
    const Uint32 leapYears = last / 4 - last / 100 + last / 400 + 1;  // the year 0 is one
    return year * 365 + leapYears;
}

}  // namespace

Uint32 daysInMonth(Uint32 year, Uint32 month) {
    static constexpr Uint32 kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

Uint32 toDayNumber(const CalendarDay& date) {
    Uint32 days = daysBeforeYear(date.year) + date.day - 1;
    for (Uint32 month = 1; month < date.month; ++month) {
        days += daysInMonth(date.year, month);
    }
    return days;
}

CalendarDay fromDayNumber(Uint32 dayNumber) {
    // The estimate is never too late and at most one year too early.
    Uint32 year = dayNumber / kDaysPerEra * 400 + dayNumber % kDaysPerEra / 366;
    while (daysBeforeYear(year + 1) <= dayNumber) {
        ++year;
    }
    Uint32 rest = dayNumber - daysBeforeYear(year);
    Uint32 month = 1;
    while (rest >= daysInMonth(year, month)) {
        rest -= daysInMonth(year, month);
        ++month;
    }
    return {year, month, rest + 1};
}

}  // namespace Pegasus
