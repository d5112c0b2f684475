#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A time stamp or an interval (DSP0004, datetime type), in one of the
/// 25-character forms
///
///     yyyymmddhhmmss.mmmmmmsutc    time stamp: s is the sign of the offset in minutes
///     ddddddddhhmmss.mmmmmm:000    interval
///
/// where from some place on, from the least significant field, asterisks may
/// stand for digits that do not matter. Texts in another form throw
/// InvalidDateTimeFormatException, fields out of range
/// DateTimeOutOfRangeException. Comparing or calculating with operands of the
/// wrong kind throws TypeMismatchException.
class PEGASUS_COMMON_LINKAGE CIMDateTime {
public:
    /// The interval of length zero.
    CIMDateTime() noexcept = default;
    CIMDateTime(const String& str);
    /// A time stamp in UTC, `usec` microseconds after the start of the year 0;
    /// or an interval of `usec` microseconds.
    CIMDateTime(Uint64 usec, Boolean isInterval);

    String toString() const;
    void set(const String& str);
    void clear() noexcept { *this = CIMDateTime(); }

    /// The local time with its offset from UTC.
    static CIMDateTime getCurrentDateTime();

    /// `finishTime` less `startTime` in microseconds; both must be of one kind.
    static Sint64 getDifference(CIMDateTime startTime, CIMDateTime finishTime);

    Boolean isInterval() const noexcept { return _sign == ':'; }
    Boolean isInterval() noexcept { return _sign == ':'; }

    /// Whether both stand for the same time, asterisks matching any digit.
    Boolean equal(const CIMDateTime& x) const;

    /// An interval's length, or the time since the start of the year 0 in UTC,
    /// in microseconds.
    Uint64 toMicroSeconds() const;

    CIMDateTime operator+(const CIMDateTime& x) const;
    CIMDateTime& operator+=(const CIMDateTime& x);
    CIMDateTime operator-(const CIMDateTime& x) const;
    CIMDateTime& operator-=(const CIMDateTime& x);
    CIMDateTime operator*(Uint64 x) const;
    CIMDateTime& operator*=(Uint64 x);
    CIMDateTime operator/(Uint64 x) const;
    CIMDateTime& operator/=(Uint64 x);
    Uint64 operator/(const CIMDateTime& x) const;

    Boolean operator<(const CIMDateTime& x) const;
    Boolean operator<=(const CIMDateTime& x) const;
    Boolean operator>(const CIMDateTime& x) const;
    Boolean operator>=(const CIMDateTime& x) const;
    Boolean operator!=(const CIMDateTime& x) const;

private:
    friend class DateTimeText;

    /// The same time with offset zero, as far as asterisks leave hours and minutes.
    CIMDateTime inUtc() const;
    /// Negative, zero or positive.
    int compare(const CIMDateTime& x) const;

    Uint64 _usec = 0;       // local time since the start of the year 0, or the length
    Uint32 _utcOffset = 0;  // minutes, without sign
    char _sign = ':';       // ':' for intervals, '+' or '-' for time stamps
    Uint8 _wildcards = 0;   // asterisks in the text form
};

PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMDateTime& x, const CIMDateTime& y);

}  // namespace Pegasus
