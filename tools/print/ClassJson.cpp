#include "tools/print/ClassJson.h"

#include <nlohmann/json.hpp>

#include "tools/machine/MethodQualifiers.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/JsonValue.h"
#include "tools/values/Qualifiers.h"
#include "vskcore/ICIMParameterDecl.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using namespace NQELVSK20;

ordered_json jsonQualifiers(const QualifierValues& qualifiers) {
    ordered_json json = ordered_json::object();
    for (const QualifierValue& qualifier : qualifiers) {
        json[qualifier.name] = jsonValue(qualifier.value);
    }
    return json;
}

template <typename DECLARATION>
ordered_json jsonTyped(const DECLARATION& declaration) {
    const TCIMValue::TCIMType type = declaration.GetType(TContext());
    ordered_json json;
    json["name"] = declaration.GetName(TContext());
    json["type"] = cimTypeName(type);
    json["array"] = isArrayType(type) || declaration.IsArray(TContext());
    return json;
}

ordered_json jsonProperty(const ClassSchema::Property& property) {
    ordered_json json = jsonTyped(*property.declaration);
    json["qualifiers"] = jsonQualifiers(valuesOf(qualifiersOf(*property.declaration)));
    return json;
}

ordered_json jsonMethod(const ClassSchema::Method& method, const RemoteDefinitions& definitions) {
    const ICIMMethodDecl& declaration = *method.declaration;
    ordered_json json;
    json["name"] = declaration.GetName(TContext());
    json["type"] = cimTypeName(declaration.GetType(TContext()));
    json["qualifiers"] = jsonQualifiers(methodQualifiers(method, definitions));
    json["parameters"] = ordered_json::array();
    declaration.EnumerateParameterDecls(
        [&](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
            ordered_json typed = jsonTyped(*parameter);
            typed["qualifiers"] =
                jsonQualifiers(parameterQualifiers(method, parameter->GetName(TContext()), definitions));
            json["parameters"].push_back(std::move(typed));
            return true;
        },
        TContext());
    return json;
}

template <typename MEMBER, typename FORM>
ordered_json jsonMembers(const std::vector<MEMBER>& members, const std::string& className, bool all,
                         const FORM& form) {
    ordered_json array = ordered_json::array();
    for (const MEMBER& member : members) {
        if (!all && !sameName(member.origin, className)) {
            continue;
        }
        ordered_json json = form(member);
        if (all) {
            json["origin"] = member.origin;
        }
        array.push_back(std::move(json));
    }
    return array;
}

}  // namespace

ordered_json jsonClass(const ClassSchema& schema, const RemoteDefinitions& definitions, bool all) {
    const std::string& name = schema.cimClass().GetName(TContext());
    ordered_json json;
    json["name"] = name;
    json["superclass"] = nullptr;
    if (schema.chain().size() > 1) {
        json["superclass"] = schema.chain()[1]->GetName(TContext());
    }
    json["qualifiers"] = jsonQualifiers(valuesOf(qualifiersOf(schema.cimClass())));
    json["properties"] = jsonMembers(schema.properties(), name, all, jsonProperty);
    json["methods"] = jsonMembers(schema.methods(), name, all, [&](const ClassSchema::Method& method) {
        return jsonMethod(method, definitions);
    });
    return json;
}

}  // namespace tool
