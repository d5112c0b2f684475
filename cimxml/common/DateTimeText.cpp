#include "cimxml/common/DateTimeText.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <limits>

#include "cimxml/common/Calendar.h"

namespace Pegasus {

namespace {

constexpr Uint32 kWildcard = std::numeric_limits<Uint32>::max();
constexpr Uint32 kMicrosecondDigits = 6;

/// Position of the sign, and of the last character that may be an asterisk.
constexpr Uint32 kSignPosition = 21;
constexpr Uint32 kLastDigitPosition = 20;

struct Fields {
    Uint32 year = 0;
    Uint32 month = 1;
    Uint32 days = 0;  // of the month, or of an interval
    Uint32 hours = 0;
    Uint32 minutes = 0;
    Uint32 seconds = 0;
    Uint32 microseconds = 0;
    Uint32 significantDigits = 0;  // of the microseconds
};

/// Reads fields from left to right. After one of asterisks only such may follow.
class FieldReader {
public:
    explicit FieldReader(const Char16* text) : _next(text) {}

    /// A number of `width` digits; kWildcard for as many asterisks.
    Uint32 number(Uint32 width) {
        if (std::all_of(_next, _next + width, isAsterisk)) {
            _next += width;
            _sawWildcard = true;
            return kWildcard;
        }
        if (_sawWildcard) {
            throw InvalidDateTimeFormatException();
        }
        return digits(width);
    }

    Uint32 digits(Uint32 width) {
        Uint32 value = 0;
        for (; width > 0; --width) {
            value = 10 * value + digit(*_next++);
        }
        return value;
    }

    /// Digits and then asterisks; counts the digits.
    Uint32 microseconds(Uint32& significantDigits) {
        const Char16* const end = _next + kMicrosecondDigits;
        const Char16* const firstAsterisk = _sawWildcard ? _next : std::find(_next, end, Char16('*'));
        significantDigits = static_cast<Uint32>(firstAsterisk - _next);
        Uint32 value = digits(significantDigits);
        if (!std::all_of(_next, end, isAsterisk)) {
            throw InvalidDateTimeFormatException();
        }
        for (; _next != end; ++_next) {
            value *= 10;
        }
        return value;
    }

    void expect(const char* text) {
        for (; *text; ++text) {
            if (*_next++ != *text) {
                throw InvalidDateTimeFormatException();
            }
        }
    }

    void skip() { ++_next; }

private:
    static bool isAsterisk(Char16 c) { return c == '*'; }

    static Uint32 digit(Char16 c) {
        if (c < '0' || c > '9') {
            throw InvalidDateTimeFormatException();
        }
        return c - Uint32{'0'};
    }

    const Char16* _next;
    bool _sawWildcard = false;
};

/// Checks fields from the most significant on, and learns how many characters
/// the asterisks take.
class FieldChecker {
public:
    /// Returns the field, or `substitute` for asterisks.
    Uint32 check(Uint32 value, Uint32 first, Uint32 last, Uint32 substitute, Uint32 wildcards,
                 const char* complaint) {
        if (value == kWildcard) {
            if (_wildcards == 0) {
                _wildcards = wildcards;
            }
            return substitute;
        }
        if (value < first || value > last) {
            throw DateTimeOutOfRangeException(complaint);
        }
        return value;
    }

    Uint8 wildcards(const Fields& fields) const {
        return static_cast<Uint8>(_wildcards != 0 ? _wildcards
                                                  : kMicrosecondDigits - fields.significantDigits);
    }

private:
    Uint32 _wildcards = 0;
};

void checkTimeOfDay(Fields& fields, FieldChecker& checker) {
    fields.hours = checker.check(fields.hours, 0, 23, 0, 12, "illegal hours number ");
    fields.minutes = checker.check(fields.minutes, 0, 59, 0, 10, "illegal minutes number ");
    fields.seconds = checker.check(fields.seconds, 0, 59, 0, 8, "illegal seconds number ");
}

Uint64 toMicros(Uint32 days, const Fields& fields) {
    return days * kMicrosPerDay + fields.hours * kMicrosPerHour + fields.minutes * kMicrosPerMinute +
           fields.seconds * kMicrosPerSecond + fields.microseconds;
}

void readTimeOfDay(FieldReader& reader, Fields& fields) {
    fields.hours = reader.number(2);
    fields.minutes = reader.number(2);
    fields.seconds = reader.number(2);
    reader.expect(".");
    fields.microseconds = reader.microseconds(fields.significantDigits);
}

/// Puts the digits of `value`, as many as fit, into the `width` characters before `end`.
void putDigits(char* end, Uint32 width, Uint64 value) {
    for (; width > 0; --width, value /= 10) {
        *--end = static_cast<char>('0' + value % 10);
    }
}

void putWildcards(DateTimeText::Characters& text, Uint32 count) {
    for (Uint32 position = kLastDigitPosition; count > 0; --position) {
        if (text[position] == '.') {
            continue;
        }
        text[position] = '*';
        --count;
    }
}

}  // namespace

CIMDateTime DateTimeText::parse(const String& text) {
    if (text.size() != kLength) {
        throw InvalidDateTimeFormatException();
    }
    const Char16* const characters = text.getChar16Data();
    switch (characters[kSignPosition]) {
        case ':':
            return parseInterval(characters);
        case '+':
        case '-':
            return parseTimeStamp(characters);
        default:
            throw InvalidDateTimeFormatException();
    }
}

CIMDateTime DateTimeText::parseInterval(const Char16* text) {
    FieldReader reader(text);
    Fields fields;
    fields.days = reader.number(8);
    readTimeOfDay(reader, fields);
    reader.expect(":000");

    FieldChecker checker;
    const Uint32 days =
        checker.check(fields.days, 0, 99999999, 1, 20, "illegal days number (must be less than 100000000");
    checkTimeOfDay(fields, checker);

    CIMDateTime result;
    result._usec = toMicros(days, fields);
    result._wildcards = checker.wildcards(fields);
    return result;
}

CIMDateTime DateTimeText::parseTimeStamp(const Char16* text) {
    FieldReader reader(text);
    Fields fields;
    fields.year = reader.number(4);
    fields.month = reader.number(2);
    fields.days = reader.number(2);
    readTimeOfDay(reader, fields);
    reader.skip();
    const Uint32 offset = reader.digits(3);

    FieldChecker checker;
    const Uint32 year = checker.check(fields.year, 0, 9999, 0, 20, "year is greater than 9999");
    const Uint32 month = checker.check(fields.month, 1, 12, 1, 16, "illegal month number");
    const Uint32 day = checker.check(fields.days, 1, daysInMonth(year, month), 1, 14, "illegal day number");
    checkTimeOfDay(fields, checker);

    CIMDateTime result;
    result._usec = toMicros(toDayNumber({year, month, day}), fields);
    result._utcOffset = offset;
    result._sign = text[kSignPosition] == '-' && offset != 0 ? '-' : '+';
    result._wildcards = checker.wildcards(fields);
    return result;
}

DateTimeText::Characters DateTimeText::format(const CIMDateTime& value) {
    Characters text;
    const Uint64 days = value._usec / kMicrosPerDay;
    if (value.isInterval()) {
        putDigits(&text[8], 8, days);
    } else {
        const CalendarDay date = fromDayNumber(static_cast<Uint32>(days));
        putDigits(&text[4], 4, date.year);
        putDigits(&text[6], 2, date.month);
        putDigits(&text[8], 2, date.day);
    }
    putDigits(&text[10], 2, value._usec / kMicrosPerHour % 24);
    putDigits(&text[12], 2, value._usec / kMicrosPerMinute % 60);
    putDigits(&text[14], 2, value._usec / kMicrosPerSecond % 60);
    text[14] = '.';
    putDigits(&text[21], 6, value._usec % kMicrosPerSecond);
    text[kSignPosition] = value._sign;
    putDigits(text.data() + kLength, 3, value._utcOffset);
    putWildcards(text, value._wildcards);
    return text;
}

}  // namespace Pegasus
