#include "cimom/operations/IntrinsicArguments.h"

#include <algorithm>

#include "cimom/common/CimError.h"
#include "cimom/common/CimType.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

[[noreturn]] void refuse(std::string_view name, const std::string& why) {
    throw CimError(CimStatus::InvalidParameter, "the parameter " + std::string(name) + " " + why);
}

void requireKind(std::string_view name, pugi::xml_node value, std::string_view element) {
    if (value.name() != element) {
        refuse(name,
               "holds " + std::string(value.name()) + " where " + std::string(element) + " was expected");
    }
}

}  // namespace

IntrinsicArguments::IntrinsicArguments(const CimRequest& request,
                                       std::initializer_list<std::string_view> allowed)
    : request_(request) {
    for (auto argument = request.arguments.begin(); argument != request.arguments.end(); ++argument) {
        const auto matches = [&](std::string_view name) { return sameName(name, argument->name); };
        if (std::none_of(allowed.begin(), allowed.end(), matches)) {
            refuse(argument->name, "is not known to " + request.operation);
        }
        if (std::any_of(request.arguments.begin(), argument,
                        [&](const CimArgument& earlier) { return matches(earlier.name); })) {
            refuse(argument->name, "is given twice");
        }
    }
}

pugi::xml_node IntrinsicArguments::find(std::string_view name) const {
    for (const CimArgument& argument : request_.arguments) {
        if (sameName(argument.name, name)) {
            return argument.value;
        }
    }
    return {};
}

pugi::xml_node IntrinsicArguments::required(std::string_view name, std::string_view element) const {
    const pugi::xml_node value = find(name);
    if (!value) {
        refuse(name, "is missing");
    }
    requireKind(name, value, element);
    return value;
}

bool IntrinsicArguments::boolean(std::string_view name, bool otherwise) const {
    const pugi::xml_node value = find(name);
    if (!value) {
        return otherwise;
    }
    requireKind(name, value, "VALUE");
    const auto text = canonicalValue("boolean", textOf(value));
    if (!text) {
        refuse(name, "is neither TRUE nor FALSE");
    }
    return *text == "TRUE";
}

std::string IntrinsicArguments::className(std::string_view name) const {
    return find(name) ? requiredClassName(name) : std::string();
}

std::string IntrinsicArguments::requiredClassName(std::string_view name) const {
    const std::string className = required(name, "CLASSNAME").attribute("NAME").value();
    if (className.empty()) {
        refuse(name, "names no class");
    }
    return className;
}

std::string IntrinsicArguments::requiredText(std::string_view name) const {
    return textOf(required(name, "VALUE"));
}

std::optional<std::string> IntrinsicArguments::text(std::string_view name) const {
    return find(name) ? std::optional<std::string>(requiredText(name)) : std::nullopt;
}

std::optional<std::uint32_t> IntrinsicArguments::number(std::string_view name) const {
    const auto given = text(name);
    if (!given) {
        return std::nullopt;
    }
    const auto number = canonicalValue("uint32", *given);
    if (!number) {
        refuse(name, "is no uint32");
    }
    return static_cast<std::uint32_t>(std::stoul(*number));
}

ObjectPath IntrinsicArguments::requiredObjectName(std::string_view name) const {
    const pugi::xml_node value = find(name);
    if (!value) {
        refuse(name, "is missing");
    }
    if (std::string_view(value.name()) != "CLASSNAME") {
        requireKind(name, value, "INSTANCENAME");
    }
    return readObjectPath(value);
}

ObjectPath IntrinsicArguments::requiredInstanceName(std::string_view name) const {
    return readObjectPath(required(name, "INSTANCENAME"));
}

PropertySelection IntrinsicArguments::propertyList() const {
    const pugi::xml_node list = find("PropertyList");
    if (!list) {
        return std::nullopt;
    }
    requireKind("PropertyList", list, "VALUE.ARRAY");
    PropertySelection selection(std::in_place);
    for (pugi::xml_node value = firstElement(list); value; value = nextElement(value)) {
        requireKind("PropertyList", value, "VALUE");
        selection->insert(lowered(textOf(value)));
    }
    return selection;
}

}  // namespace cimom
