#include "tools/common/DateTimeForm.h"

#include <algorithm>
#include <array>

#include "tools/common/Integer.h"

namespace tool {

namespace {

constexpr std::size_t kLength = 25;
constexpr std::size_t kSign = 21;  // of the zone; ":" in an interval

struct Field {
    std::size_t begin;
    std::size_t size;
    int lowest;
    int highest;
};

constexpr std::array<Field, 4> kTimeOfDay = {
    Field{8, 2, 0, 23}, {10, 2, 0, 59}, {12, 2, 0, 59}, {15, 6, 0, 999999}};
constexpr std::array<Field, 2> kDate = {Field{4, 2, 1, 12}, {6, 2, 1, 31}};

bool isUnknown(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char letter) { return letter == '*'; });
}

bool isNumber(const std::string& text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

bool holds(const std::string& text, const Field& field) {
    const std::string part = text.substr(field.begin, field.size);
    if (isNumber(part)) {
        const int number = std::stoi(part);
        return number >= field.lowest && number <= field.highest;
    }
    // Microseconds may be known to some of their digits.
    const bool isMicroseconds = field.size == 6;
    const std::size_t known = isMicroseconds ? part.find('*') : 0;
    return known != std::string::npos && isNumber(part.substr(0, known)) && isUnknown(part.substr(known));
}

template <typename FIELDS>
bool holdAll(const std::string& text, const FIELDS& fields) {
    return std::all_of(fields.begin(), fields.end(), [&](const Field& field) { return holds(text, field); });
}

bool isNumberOrUnknown(const std::string& text) {
    return isNumber(text) || isUnknown(text);
}

}  // namespace

bool isDateTime(const std::string& text) {
    if (text.size() != kLength || text[14] != '.' || !holdAll(text, kTimeOfDay)) {
        return false;
    }
    const std::string zone = text.substr(kSign + 1);
    if (text[kSign] == ':') {
        return zone == "000" && isNumberOrUnknown(text.substr(0, 8));
    }
    const bool hasZone = (text[kSign] == '+' || text[kSign] == '-') && isNumber(zone);
    return hasZone && isNumberOrUnknown(text.substr(0, 4)) && holdAll(text, kDate);
}

}  // namespace tool
