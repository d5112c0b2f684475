#include "tools/common/Moment.h"

#include <algorithm>
#include <cstdlib>

#include "tools/common/DateTimeForm.h"

namespace tool {

namespace {

constexpr std::size_t kSignPlace = 21;
constexpr long long kMinute = 60'000'000;

long long fieldAt(std::string text, std::size_t begin, std::size_t size) {
    std::replace(text.begin(), text.end(), '*', '0');
    return std::strtoll(text.substr(begin, size).c_str(), nullptr, 10);
}

// Days from the first of March of the year 0 of the Gregorian calendar, whose leap days then end a year.
long long dayNumber(long long year, long long month, long long day) {
    year -= month <= 2 ? 1 : 0;
    const long long monthFromMarch = (month + 9) % 12;
    return year * 365 + year / 4 - year / 100 + year / 400 + (monthFromMarch * 153 + 2) / 5 + day - 1;
}

long long daysOf(const std::string& text, bool isInterval) {
    if (isInterval) {
        return fieldAt(text, 0, 8);
    }
    const long long month = std::max(fieldAt(text, 4, 2), 1LL);
    return dayNumber(fieldAt(text, 0, 4), month, std::max(fieldAt(text, 6, 2), 1LL));
}

}  // namespace

std::optional<Moment> Moment::of(const std::string& text) {
    if (!isDateTime(text)) {
        return std::nullopt;
    }
    Moment moment;
    moment.isInterval = text[kSignPlace] == ':';
    const long long hours = daysOf(text, moment.isInterval) * 24 + fieldAt(text, 8, 2);
    const long long zone = moment.isInterval ? 0 : fieldAt(text, kSignPlace, 4);
    moment.microseconds = (hours * 60 + fieldAt(text, 10, 2) - zone) * kMinute +
                          fieldAt(text, 12, 2) * 1'000'000 + fieldAt(text, 15, 6);
    return moment;
}

std::string timeText(const std::string& text) {
    const auto moment = Moment::of(text);
    if (!moment || moment->isInterval) {
        return text;
    }
    return text.substr(0, 4) + '-' + text.substr(4, 2) + '-' + text.substr(6, 2) + ' ' + text.substr(8, 2) +
           ':' + text.substr(10, 2) + ':' + text.substr(12, 2);
}

}  // namespace tool
