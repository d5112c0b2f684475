#include "tools/query/Comparison.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "tools/common/Integer.h"
#include "tools/common/Names.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using NQELVSK20::TContext;
using TType = TCIMValue::TCIMType;

bool isNumeric(TType::ECIMType type) {
    return type >= TType::eUint8 && type <= TType::eReal64;
}

std::optional<Decimal> numberTyped(const std::string& text) {
    const auto integer = parseInteger(text);
    return integer ? Decimal::parse((integer->negative ? "-" : "") + std::to_string(integer->size))
                   : Decimal::parse(text);
}

bool contains(const std::string& text, const std::string& part) {
    return lowerName(text).find(lowerName(part)) != std::string::npos;
}

}  // namespace

std::optional<Moment> momentTyped(const std::string& text) {
    if (auto moment = Moment::of(text)) {
        return moment;
    }
    std::string digits;
    for (const char letter : text) {
        if (isDigit(letter)) {
            digits += letter;
        } else if (letter != '-' && letter != ':' && letter != ' ' && letter != 'T') {
            return std::nullopt;
        }
    }
    constexpr const char* rest = "00000101000000";
    const bool isWhole = digits.size() == 4 || digits.size() == 6 || digits.size() == 8 ||
                         digits.size() == 12 || digits.size() == 14;
    return isWhole ? Moment::of(digits + std::string(rest).substr(digits.size()) + ".000000+000")
                   : std::nullopt;
}

Comparison::Comparison(const Token& property, const Token& comparator, const Token& value,
                       const ClassSchema& schema)
    : text_(value.text), meanings_(schema.valueMapOf(property.text)) {
    const ClassSchema::Property* declared = schema.findProperty(property.text);
    if (declared == nullptr) {
        refuseToken(property, "a property of " + schema.cimClass().GetName(TContext()) + " is expected");
    }
    property_ = declared->name;
    readOperator(comparator);
    readValue(value, *declared);
}

void Comparison::readOperator(const Token& comparator) {
    static const std::map<std::string, std::pair<Operator, bool>> operators = {
        {"=", {Operator::kEqual, false}},    {"==", {Operator::kEqual, false}},
        {"!=", {Operator::kEqual, true}},    {"<>", {Operator::kEqual, true}},
        {"<", {Operator::kLess, false}},     {"<=", {Operator::kLessOrEqual, false}},
        {">", {Operator::kGreater, false}},  {">=", {Operator::kGreaterOrEqual, false}},
        {"~", {Operator::kContains, false}}, {"!~", {Operator::kContains, true}}};
    const auto found = operators.find(comparator.text);
    if (found == operators.end()) {
        refuseToken(comparator, "one of = != < <= > >= ~ !~ is expected");
    }
    std::tie(operator_, negated_) = found->second;
}

void Comparison::readValue(const Token& value, const ClassSchema::Property& property) {
    const TType::ECIMType type = scalarType(property.declaration->GetType(TContext()));
    if (operator_ == Operator::kContains) {
        return;
    }
    if (isNumeric(type)) {
        readNumber(value);
    } else if (type == TType::eDateTime) {
        readMoment(value);
    } else if (type == TType::eBoolean && !sameName(text_, "true") && !sameName(text_, "false")) {
        refuseToken(value, property_ + " is true or false");
    }
}

void Comparison::readNumber(const Token& value) {
    number_ = numberTyped(text_);
    if (number_) {
        return;
    }
    if (meanings_ == nullptr) {
        refuseToken(value, property_ + " takes a number");
    }
    const auto& entries = meanings_->entries();
    const auto named = std::find_if(entries.begin(), entries.end(), [&](const ValueMap::Entry& entry) {
        return sameName(entry.text, text_);
    });
    if (named == entries.end()) {
        refuseToken(value, property_ + " takes a number or one of " + meanings_->texts());
    }
    // A name may stand for a range; that is nothing to be less than.
    number_ = operator_ == Operator::kEqual ? std::nullopt : numberTyped(named->value);
    if (operator_ != Operator::kEqual && !number_) {
        refuseToken(value, "a single value of " + property_ + " is expected");
    }
}

void Comparison::readMoment(const Token& value) {
    moment_ = momentTyped(text_);
    if (!moment_) {
        refuseToken(value, property_ +
                               " takes a date such as 2024-09-11 or '2024-09-11 14:02', in UTC, or CIM's " +
                               "25 characters");
    }
}

bool Comparison::holds(const PropertySource& properties) const {
    const TCIMValue* value = properties(property_);
    bool found = false;
    if (value != nullptr && !value->IsNull() && value->IsArray()) {
        const auto& elements = elementsOf(*value);
        found = std::any_of(elements.begin(), elements.end(),
                            [this](const TCIMValue& element) { return fits(element); });
    } else if (value != nullptr) {
        found = fits(*value);
    }
    return found != negated_;
}

template <typename VALUE>
bool Comparison::compare(const VALUE& left, const VALUE& right) const {
    switch (operator_) {
        case Operator::kLess:
            return left < right;
        case Operator::kLessOrEqual:
            return !(right < left);
        case Operator::kGreater:
            return right < left;
        case Operator::kGreaterOrEqual:
            return !(left < right);
        default:
            return left == right;
    }
}

bool Comparison::fits(const TCIMValue& scalar) const {
    if (scalar.IsNull()) {
        return false;
    }
    if (number_) {
        const auto number = numberOf(scalar);
        return number && compare(*number, *number_);
    }
    if (moment_) {
        const auto moment = Moment::of(plainText(scalar));
        return moment && moment->isInterval == moment_->isInterval &&
               compare(moment->microseconds, moment_->microseconds);
    }
    return fitsText(scalar);
}

bool Comparison::fitsText(const TCIMValue& scalar) const {
    const std::string text = plainText(scalar);
    const auto meaning = meanings_ == nullptr ? std::nullopt : meanings_->textOf(scalar);
    if (operator_ == Operator::kContains) {
        return contains(text, text_) || (meaning && contains(*meaning, text_));
    }
    if (operator_ == Operator::kEqual) {
        const bool isBoolean = scalar.GetType() == TType::eBoolean;
        return (isBoolean ? sameName(text, text_) : text == text_) || (meaning && sameName(*meaning, text_));
    }
    const auto left = numberTyped(text);
    const auto right = numberTyped(text_);
    return left && right ? compare(*left, *right) : compare(text, text_);
}

}  // namespace tool
