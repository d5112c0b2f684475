#include "cimom/query/Operand.h"

#include <cstdlib>
#include <string_view>

#include "cimom/common/CimType.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

const char* const kClassName = "__CLASS";

Operand::Kind operandKindOf(const MemberView& member) {
    if (std::string_view(member.element.name()) == "PROPERTY.ARRAY") {
        return Operand::Kind::Array;
    }
    switch (keyKindOf(member.type())) {
        case KeyBinding::Kind::Numeric:
            return Operand::Kind::Number;
        case KeyBinding::Kind::Boolean:
            return Operand::Kind::Boolean;
        case KeyBinding::Kind::Reference:
            return Operand::Kind::Reference;
        default:
            return Operand::Kind::Text;
    }
}

bool isInteger(const std::string& canonical) {
    const std::size_t digits = canonical.compare(0, 1, "-") == 0 ? 1 : 0;
    return canonical.size() > digits &&
           canonical.find_first_not_of("0123456789", digits) == std::string::npos;
}

template <typename Value>
int orderOf(const Value& one, const Value& other) {
    return one < other ? -1 : other < one ? 1 : 0;
}

/// Of two integers without leading zeros.
int compareIntegers(const std::string& one, const std::string& other) {
    const bool negative = one.front() == '-';
    if (negative != (other.front() == '-')) {
        return negative ? -1 : 1;
    }
    const int magnitudes =
        one.size() == other.size() ? orderOf(one, other) : orderOf(one.size(), other.size());
    return negative ? -magnitudes : magnitudes;
}

int compareNumbers(const std::string& one, const std::string& other) {
    const std::string left = canonicalNumber(one);
    const std::string right = canonicalNumber(other);
    return isInteger(left) && isInteger(right)
               ? compareIntegers(left, right)
               : orderOf(std::strtod(left.c_str(), nullptr), std::strtod(right.c_str(), nullptr));
}

}  // namespace

std::optional<std::string> Operand::valueFor(const Instance& instance) const {
    if (property.empty()) {
        return kind == Kind::Null ? std::nullopt : std::optional<std::string>(literal);
    }
    if (property == kClassName) {
        return instance.type().name;
    }
    const std::string xml = instance.valueXml(property);
    pugi::xml_document document;
    if (xml.empty() || parseXml(xml, document)) {
        return std::nullopt;
    }
    return textOf(firstElement(document));
}

Operand Operand::ofProperty(const MemberView& member) {
    return {operandKindOf(member), member.name, ""};
}

Operand Operand::ofClassName() {
    return {Kind::Text, kClassName, ""};
}

int compareValues(Operand::Kind kind, const std::string& one, const std::string& other) {
    switch (kind) {
        case Operand::Kind::Number:
            return compareNumbers(one, other);
        case Operand::Kind::Boolean:
            return orderOf(lowered(one), lowered(other));
        default:
            return orderOf(one, other);
    }
}

}  // namespace cimom
