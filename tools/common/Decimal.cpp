#include "tools/common/Decimal.h"

#include <charconv>
#include <system_error>
#include <tuple>

#include "tools/common/Integer.h"

namespace tool {

namespace {

// Beyond it the arithmetic of exponents would have to look out for overflows.
constexpr long long kHighestExponent = 1'000'000'000'000;

// Places before and behind the point, up to which a number is written in full: 64 bits take 20.
constexpr long long kPlainPlaces = 21;
constexpr long long kPlainZeros = 6;

/// Reads the parts of a number one after the other.
class NumberReader {
public:
    explicit NumberReader(const std::string& text) : text_(text) {}

    bool sign() {
        const bool isSigned =
            position_ < text_.size() && (text_[position_] == '-' || text_[position_] == '+');
        return isSigned && text_[position_++] == '-';
    }

    std::string digits() {
        const std::size_t begin = position_;
        while (position_ < text_.size() && isDigit(text_[position_])) {
            ++position_;
        }
        return text_.substr(begin, position_ - begin);
    }

    bool take(char small, char large) {
        const bool isThere =
            position_ < text_.size() && (text_[position_] == small || text_[position_] == large);
        position_ += isThere ? 1U : 0U;
        return isThere;
    }

    bool atEnd() const { return position_ == text_.size(); }

private:
    const std::string& text_;
    std::size_t position_ = 0;
};

// What stands behind the "e"; 0 without one.
std::optional<long long> readExponent(NumberReader& reader) {
    if (!reader.take('e', 'E')) {
        return 0;
    }
    const bool isNegative = reader.sign();
    const std::string digits = reader.digits();
    long long exponent = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (digits.empty() || error != std::errc() || exponent > kHighestExponent) {
        return std::nullopt;
    }
    return isNegative ? -exponent : exponent;
}

}  // namespace

std::optional<Decimal> Decimal::parse(const std::string& text) {
    NumberReader reader(text);
    Decimal number;
    number.negative_ = reader.sign();
    number.digits_ = reader.digits();
    const std::string fraction = reader.take('.', '.') ? reader.digits() : std::string();
    number.digits_ += fraction;
    const auto exponent = readExponent(reader);
    if (number.digits_.empty() || !exponent || !reader.atEnd()) {
        return std::nullopt;
    }
    number.exponent_ = *exponent - static_cast<long long>(fraction.size());
    number.drop();
    return number;
}

// Zeros at either end.
void Decimal::drop() {
    digits_.erase(0, digits_.find_first_not_of('0'));
    const std::size_t kept = digits_.find_last_not_of('0') + 1;
    exponent_ += static_cast<long long>(digits_.size() - kept);
    digits_.erase(kept);
    if (digits_.empty()) {
        *this = Decimal();
    }
}

Decimal Decimal::scaledBy(int powerOfTen) const {
    Decimal scaled = *this;
    scaled.exponent_ += isZero() ? 0 : powerOfTen;
    return scaled;
}

// The place of the point, counted from the first digit.
long long Decimal::magnitude() const {
    return static_cast<long long>(digits_.size()) + exponent_;
}

bool Decimal::operator==(const Decimal& other) const {
    return std::tie(negative_, digits_, exponent_) ==
           std::tie(other.negative_, other.digits_, other.exponent_);
}

bool Decimal::isSmallerThan(const Decimal& other) const {
    if (isZero() || other.isZero()) {
        return !other.isZero();
    }
    const long long places = magnitude();
    const long long otherPlaces = other.magnitude();
    return places != otherPlaces ? places < otherPlaces : digits_ < other.digits_;
}

bool Decimal::operator<(const Decimal& other) const {
    if (negative_ != other.negative_) {
        return negative_;
    }
    return negative_ ? other.isSmallerThan(*this) : isSmallerThan(other);
}

std::string Decimal::plainText() const {
    if (exponent_ >= 0) {
        return digits_ + std::string(static_cast<std::size_t>(exponent_), '0');
    }
    const long long point = magnitude();
    if (point <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-point), '0') + digits_;
    }
    return digits_.substr(0, static_cast<std::size_t>(point)) + '.' +
           digits_.substr(static_cast<std::size_t>(point));
}

std::string Decimal::scientificText() const {
    const long long power = magnitude() - 1;
    return digits_.substr(0, 1) + (digits_.size() > 1 ? "." + digits_.substr(1) : "") + 'e' +
           (power < 0 ? "" : "+") + std::to_string(power);
}

std::string Decimal::text() const {
    if (isZero()) {
        return "0";
    }
    const bool isPlain = magnitude() <= kPlainPlaces && magnitude() > -kPlainZeros;
    return (negative_ ? "-" : "") + (isPlain ? plainText() : scientificText());
}

}  // namespace tool
