#pragma once

#include <optional>
#include <string>

namespace tool {

/// Whether a character is an ASCII digit.
constexpr bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

/// An integer of any CIM type: its sign apart from its size, since no C++ type holds both ends.
struct Integer {
    bool negative = false;  ///< False for zero.
    unsigned long long size = 0;

    bool operator<=(const Integer& other) const;
};

/// The integer that a text is, decimal or hexadecimal after "0x", with or without a sign; none when it is
/// something else or does not fit.
std::optional<Integer> parseInteger(const std::string& text);

}  // namespace tool
