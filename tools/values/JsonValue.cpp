#include "tools/values/JsonValue.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "tools/common/Integer.h"
#include "tools/common/SafeText.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using NQELVSK20::TCIMValue;
using TType = TCIMValue::TCIMType;

ordered_json jsonReal(const TCIMValue& scalar) {
    const double real = scalar.operator double();
    if (std::isnan(real)) {
        return "NaN";
    }
    if (std::isinf(real)) {
        return real < 0 ? "-INF" : "INF";
    }
    // A real32 as a double would show digits that it does not have; its shortest text has none of them.
    return std::strtod(scalar.ToString(10).c_str(), nullptr);
}

ordered_json jsonScalar(const TCIMValue& scalar) {
    if (scalar.IsNull()) {
        return nullptr;
    }
    switch (scalarType(scalar.GetType())) {
        case TType::eBoolean:
            return scalar.operator bool();
        case TType::eUint8:
        case TType::eUint16:
        case TType::eUint32:
        case TType::eUint64:
            return scalar.operator unsigned long long();
        case TType::eSint8:
        case TType::eSint16:
        case TType::eSint32:
        case TType::eSint64:
            return scalar.operator long long();
        case TType::eReal32:
        case TType::eReal64:
            return jsonReal(scalar);
        default:
            return plainText(scalar);
    }
}

}  // namespace

ordered_json jsonValue(const TCIMValue& value) {
    if (value.IsNull() || !value.IsArray()) {
        return jsonScalar(value);
    }
    ordered_json array = ordered_json::array();
    for (const TCIMValue& element : elementsOf(value)) {
        array.push_back(jsonScalar(element));
    }
    return array;
}

ordered_json jsonNode(const std::string& node) {
    const auto number = parseInteger(node);
    return number ? ordered_json(number->size) : ordered_json(nullptr);
}

std::string jsonText(const ordered_json& json, int indent, bool ascii) {
    return withoutHidden(json.dump(indent, ' ', ascii, ordered_json::error_handler_t::replace));
}

}  // namespace tool
