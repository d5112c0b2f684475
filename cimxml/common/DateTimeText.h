#pragma once

#include <Pegasus/Common/CIMDateTime.h>

#include <array>

namespace Pegasus {

constexpr Uint64 kMicrosPerSecond = 1'000'000;
constexpr Uint64 kMicrosPerMinute = 60 * kMicrosPerSecond;
constexpr Uint64 kMicrosPerHour = 60 * kMicrosPerMinute;
constexpr Uint64 kMicrosPerDay = 24 * kMicrosPerHour;

/// The 25-character form of a datetime (DSP0004, datetime type).
class DateTimeText {
public:
    static constexpr Uint32 kLength = 25;
    using Characters = std::array<char, kLength>;

    /// Throws InvalidDateTimeFormatException or DateTimeOutOfRangeException.
    static CIMDateTime parse(const String& text);

    static Characters format(const CIMDateTime& value);

private:
    static CIMDateTime parseInterval(const Char16* text);
    static CIMDateTime parseTimeStamp(const Char16* text);
};

}  // namespace Pegasus
