#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <chrono>
#include <ctime>

#include "cimxml/common/Calendar.h"
#include "cimxml/common/DateTimeText.h"

namespace Pegasus {

namespace {

constexpr Uint64 kTimeStampLimit = 3'652'425 * kMicrosPerDay;   // the year 10000
constexpr Uint64 kIntervalLimit = 100'000'000 * kMicrosPerDay;  // 8 digits of days
constexpr Uint64 kPosixEpoch = 719'528 * kMicrosPerDay;         // 1970

/// Wildcard counts from which on the minutes, and then the hours, do not matter.
constexpr Uint32 kMinutesWild = 10;
constexpr Uint32 kHoursWild = 12;

/// The difference of the first characters that differ and are no asterisks.
int compareTexts(const DateTimeText::Characters& x, const DateTimeText::Characters& y) {
    for (Uint32 i = 0; i < DateTimeText::kLength; ++i) {
        if (x[i] != y[i] && x[i] != '*' && y[i] != '*') {
            return x[i] - y[i];
        }
    }
    return 0;
}

std::tm localTime(std::time_t time) {
    std::tm result{};
#ifdef _WIN32
    localtime_s(&result, &time);
#else
    localtime_r(&time, &result);
#endif
    return result;
}

/// The calendar time as microseconds since the start of the year 0.
Uint64 toMicros(const std::tm& time) {
    const Uint32 day = toDayNumber({static_cast<Uint32>(time.tm_year + 1900),
                                    static_cast<Uint32>(time.tm_mon + 1), static_cast<Uint32>(time.tm_mday)});
    return day * kMicrosPerDay + static_cast<Uint32>(time.tm_hour) * kMicrosPerHour +
           static_cast<Uint32>(time.tm_min) * kMicrosPerMinute +
           static_cast<Uint32>(time.tm_sec) * kMicrosPerSecond;
}

[[noreturn]] void throwNegative() {
    throw DateTimeOutOfRangeException("Result of subtracting two CIMDateTimes would be negative.");
}

}  // namespace

CIMDateTime::CIMDateTime(const String& str) : CIMDateTime(DateTimeText::parse(str)) {}

CIMDateTime::CIMDateTime(Uint64 usec, Boolean isInterval) : _usec(usec), _sign(isInterval ? ':' : '+') {
    if (!isInterval && usec >= kTimeStampLimit) {
        throw DateTimeOutOfRangeException("Cannot create a CIMDateTime time stamp beyond the year 10,000");
    }
    if (isInterval && usec >= kIntervalLimit) {
        throw DateTimeOutOfRangeException(
            "Cannot create a CIMDateTime interval greater than 100 million days");
    }
}

String CIMDateTime::toString() const {
    return String(DateTimeText::format(*this).data(), DateTimeText::kLength);
}

void CIMDateTime::set(const String& str) {
    clear();
    *this = DateTimeText::parse(str);
}

CIMDateTime CIMDateTime::getCurrentDateTime() {
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::microseconds>(
                                std::chrono::system_clock::now().time_since_epoch())
                                .count();
    const Uint64 utc = kPosixEpoch + static_cast<Uint64>(sinceEpoch);
    const Uint64 fraction = utc % kMicrosPerSecond;
    const Uint64 local =
        toMicros(localTime(static_cast<std::time_t>(sinceEpoch / Sint64{kMicrosPerSecond}))) + fraction;
    const bool isWest = local < utc;
    CIMDateTime result(local, false);
    result._utcOffset = static_cast<Uint32>((isWest ? utc - local : local - utc) / kMicrosPerMinute);
    result._sign = isWest ? '-' : '+';
    return result;
}

Sint64 CIMDateTime::getDifference(CIMDateTime startTime, CIMDateTime finishTime) {
    if (startTime.isInterval() != finishTime.isInterval()) {
        throw InvalidDateTimeFormatException();
    }
    return static_cast<Sint64>(finishTime.toMicroSeconds() - startTime.toMicroSeconds());
}

CIMDateTime CIMDateTime::inUtc() const {
    CIMDateTime result(*this);
    if (isInterval()) {
        return result;
    }
    const Uint32 minutes = _wildcards < kMinutesWild ? _utcOffset
                           : _wildcards < kHoursWild ? _utcOffset / 60 * 60
                                                     : 0;
    const Uint64 shift = minutes * kMicrosPerMinute;
    result._usec = _sign == '-' ? _usec + shift : _usec - shift;
    result._utcOffset = 0;
    result._sign = '+';
    return result;
}

int CIMDateTime::compare(const CIMDateTime& x) const {
    if (isInterval() != x.isInterval()) {
        throw TypeMismatchException("Trying to compare CIMDateTime objects of differing types");
    }
    const CIMDateTime left = inUtc();
    const CIMDateTime right = x.inUtc();
    if (_wildcards != 0 || x._wildcards != 0) {
        return compareTexts(DateTimeText::format(left), DateTimeText::format(right));
    }
    return left._usec < right._usec ? -1 : left._usec > right._usec ? 1 : 0;
}

Boolean CIMDateTime::equal(const CIMDateTime& x) const {
    return compare(x) == 0;
}

Uint64 CIMDateTime::toMicroSeconds() const {
    return inUtc()._usec;
}

CIMDateTime CIMDateTime::operator+(const CIMDateTime& x) const {
    return CIMDateTime(*this) += x;
}

CIMDateTime& CIMDateTime::operator+=(const CIMDateTime& x) {
    if (!x.isInterval()) {
        throw TypeMismatchException();
    }
    _usec += x._usec;
    return *this;
}

CIMDateTime CIMDateTime::operator-(const CIMDateTime& x) const {
    if (isInterval() && !x.isInterval()) {
        throw TypeMismatchException();
    }
    const Uint64 left = toMicroSeconds();
    const Uint64 right = x.toMicroSeconds();
    if (left < right) {
        throwNegative();
    }
    if (isInterval() == x.isInterval()) {
        return CIMDateTime(left - right, true);
    }
    // In OpenPegasus this operator, unlike -=, counts from UTC and keeps the
    // offset all the same.
    CIMDateTime result(*this);
    result._usec = left - right;
    return result;
}

CIMDateTime& CIMDateTime::operator-=(const CIMDateTime& x) {
    if (!x.isInterval()) {
        throw TypeMismatchException();
    }
    if (_usec < x._usec) {
        throwNegative();
    }
    _usec -= x._usec;
    return *this;
}

CIMDateTime CIMDateTime::operator*(Uint64 x) const {
    return CIMDateTime(*this) *= x;
}

CIMDateTime& CIMDateTime::operator*=(Uint64 x) {
    if (!isInterval()) {
        throw TypeMismatchException();
    }
    _usec *= x;
    return *this;
}

CIMDateTime CIMDateTime::operator/(Uint64 x) const {
    return CIMDateTime(*this) /= x;
}

CIMDateTime& CIMDateTime::operator/=(Uint64 x) {
    if (!isInterval()) {
        throw TypeMismatchException("Can not divide a TimeStamp by an integer");
    }
    if (x == 0) {
        throw Exception("Can not divide CIMDateTime by zero");
    }
    _usec /= x;
    return *this;
}

Uint64 CIMDateTime::operator/(const CIMDateTime& x) const {
    if (!isInterval() || !x.isInterval()) {
        throw TypeMismatchException("Can not divide two CIMDateTime objects if one of them is a TimeStamp");
    }
    if (x._usec == 0) {
        throw Exception("Can not divide CIMDateTime by zero");
    }
    return _usec / x._usec;
}

Boolean CIMDateTime::operator<(const CIMDateTime& x) const {
    return compare(x) < 0;
}

Boolean CIMDateTime::operator<=(const CIMDateTime& x) const {
    return compare(x) <= 0;
}

Boolean CIMDateTime::operator>(const CIMDateTime& x) const {
    return compare(x) > 0;
}

Boolean CIMDateTime::operator>=(const CIMDateTime& x) const {
    return compare(x) >= 0;
}

Boolean CIMDateTime::operator!=(const CIMDateTime& x) const {
    return compare(x) != 0;
}

Boolean operator==(const CIMDateTime& x, const CIMDateTime& y) {
    return x.equal(y);
}

}  // namespace Pegasus
