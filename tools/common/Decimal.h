#pragma once

#include <optional>
#include <string>

namespace tool {

/// A decimal number of any size, exactly as it is written: 331 hundredths are 3.31, which no binary number
/// is.
class Decimal {
public:
    Decimal() = default;  ///< Zero.

    /// The number that a text is, such as `-12`, `+0.5` or `1e-3`; none when it is something else, "nan" for
    /// one.
    static std::optional<Decimal> parse(const std::string& text);

    /// The number times ten to a power.
    Decimal scaledBy(int powerOfTen) const;

    bool isZero() const { return digits_.empty(); }
    bool isWhole() const { return exponent_ >= 0; }

    bool operator==(const Decimal& other) const;
    bool operator!=(const Decimal& other) const { return !(*this == other); }
    bool operator<(const Decimal& other) const;

    /// Without zeros that say nothing; numbers too long for it in the form 1.5e+30.
    std::string text() const;

private:
    long long magnitude() const;
    bool isSmallerThan(const Decimal& other) const;
    std::string plainText() const;
    std::string scientificText() const;
    void drop();

    bool negative_ = false;
    std::string digits_;  // neither begins nor ends with a zero; empty for zero
    long long exponent_ = 0;
};

}  // namespace tool
