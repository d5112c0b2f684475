#include "tools/values/ValueText.h"

#include "tools/common/SafeText.h"
#include "tools/common/Utf8.h"
#include "tools/values/CimTypeName.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using TType = TCIMValue::TCIMType;

bool isQuotedInMof(TType type) {
    const TType::ECIMType scalar = scalarType(type);
    return scalar == TType::eString || scalar == TType::eDateTime || scalar == TType::eReference ||
           scalar == TType::eUnknown;
}

std::string scalarText(const TCIMValue& scalar, const ValueMap* map) {
    if (scalar.IsNull()) {
        return "(null)";
    }
    const auto meaning = map == nullptr ? std::nullopt : map->textOf(scalar);
    const std::string text = safeText(plainText(scalar));
    return meaning ? text + " (" + safeText(*meaning) + ")" : text;
}

std::string mofScalar(const TCIMValue& scalar) {
    if (scalar.IsNull()) {
        return "NULL";
    }
    switch (scalarType(scalar.GetType())) {
        case TType::eBoolean:
            return static_cast<bool>(scalar) ? "TRUE" : "FALSE";
        case TType::eChar16:
            return "'" + safeText(plainText(scalar)) + "'";
        default:
            return isQuotedInMof(scalar.GetType()) ? mofString(plainText(scalar)) : plainText(scalar);
    }
}

template <typename FORM>
std::string joined(const std::vector<TCIMValue>& elements, const FORM& form) {
    std::string text;
    for (const TCIMValue& element : elements) {
        text += text.empty() ? "" : ", ";
        text += form(element);
    }
    return text;
}

}  // namespace

const std::vector<TCIMValue>& elementsOf(const TCIMValue& value) {
    return value.operator const std::vector<TCIMValue>&();
}

std::string plainText(const TCIMValue& scalar) {
    if (!scalar.IsNull() && scalarType(scalar.GetType()) == TType::eChar16) {
        return toUtf8(scalar.operator unsigned short());
    }
    return scalar.ToString(10);
}

std::string valueText(const TCIMValue& value, const ValueMap* map) {
    if (value.IsNull() || !value.IsArray()) {
        return scalarText(value, map);
    }
    return "[" +
           joined(elementsOf(value), [&](const TCIMValue& element) { return scalarText(element, map); }) +
           "]";
}

std::string mofText(const TCIMValue& value) {
    if (value.IsNull() || !value.IsArray()) {
        return mofScalar(value);
    }
    return "{" + joined(elementsOf(value), mofScalar) + "}";
}

std::string mofString(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') {
            quoted += '\\';
        }
        quoted += letter;
    }
    return safeText(quoted += '"');
}

}  // namespace tool
