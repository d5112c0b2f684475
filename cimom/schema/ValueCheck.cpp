#include "cimom/schema/ValueCheck.h"

#include <string_view>

#include "cimom/common/CimType.h"
#include "cimom/common/ObjectPath.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

[[noreturn]] void refuseValue(const ValueRule& rule, const std::string& why) {
    throw CimError(rule.otherwise, rule.what + " " + why);
}

std::string checkedScalar(const ValueRule& rule, pugi::xml_node value) {
    const bool reference = rule.type == "reference";
    const std::string_view expected = reference ? "VALUE.REFERENCE" : "VALUE";
    if (value.name() != expected) {
        refuseValue(
            rule, "holds " + std::string(value.name()) + " where " + std::string(expected) + " was expected");
    }
    if (reference) {
        readObjectPath(firstElement(value));
        std::string xml;
        appendElement(xml, value);
        return xml;
    }
    const auto text = canonicalValue(rule.type, textOf(value));
    if (!text) {
        refuseValue(rule, "is no " + rule.type + ": '" + textOf(value) + "'");
    }
    return valueElement(*text);
}

std::string checkedArray(const ValueRule& rule, pugi::xml_node array) {
    const std::string name = rule.type == "reference" ? "VALUE.REFARRAY" : "VALUE.ARRAY";
    if (array.name() != name) {
        refuseValue(rule, "is an array and holds " + std::string(array.name()));
    }
    std::string xml = "<" + name + ">";
    for (pugi::xml_node value = firstElement(array); value; value = nextElement(value)) {
        const bool null = std::string_view(value.name()) == "VALUE.NULL";
        xml += null ? "<VALUE.NULL></VALUE.NULL>" : checkedScalar(rule, value);
    }
    return xml + "</" + name + ">";
}

}  // namespace

std::string checkedValue(const ValueRule& rule, pugi::xml_node value) {
    return rule.isArray ? checkedArray(rule, value) : checkedScalar(rule, value);
}

std::string valueElement(const std::string& text) {
    std::string xml = "<VALUE>";
    appendEscaped(xml, text);
    return xml + "</VALUE>";
}

}  // namespace cimom
