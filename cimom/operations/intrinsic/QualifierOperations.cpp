#include "cimom/operations/intrinsic/QualifierOperations.h"

#include "cimom/common/CimType.h"
#include "cimom/common/Xml.h"
#include "cimom/operations/IntrinsicArguments.h"

namespace cimom {
namespace {

pugi::xml_node requireQualifier(const IntrinsicCall& call, const std::string& name) {
    const pugi::xml_node declaration = call.nameSpace.qualifiers.find(name);
    if (!declaration) {
        throw CimError(CimStatus::NotFound, "there is no qualifier declaration '" + name + "'");
    }
    return declaration;
}

}  // namespace

void getQualifier(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"QualifierName"});
    appendElement(out, requireQualifier(call, arguments.requiredText("QualifierName")));
}

void enumerateQualifiers(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {});
    for (const pugi::xml_node declaration : call.nameSpace.qualifiers.all()) {
        appendElement(out, declaration);
    }
}

void setQualifier(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"QualifierDeclaration"});
    const pugi::xml_node declaration = arguments.required("QualifierDeclaration", "QUALIFIER.DECLARATION");
    const std::string type = declaration.attribute("TYPE").value();
    if (*declaration.attribute("NAME").value() == '\0' || !isCimType(type) || type == "reference") {
        throw CimError(CimStatus::InvalidParameter, "a qualifier declaration needs NAME and TYPE");
    }
    const pugi::xml_node replaced = call.nameSpace.qualifiers.find(declaration.attribute("NAME").value());
    call.nameSpace.qualifiers.declare(call.nameSpace.keep(declaration));
    NameSpace::drop(replaced);
    call.extras.returnsValue = false;
}

void deleteQualifier(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"QualifierName"});
    const std::string name = arguments.requiredText("QualifierName");
    const pugi::xml_node declaration = requireQualifier(call, name);
    call.nameSpace.qualifiers.remove(name);
    NameSpace::drop(declaration);
    call.extras.returnsValue = false;
}

}  // namespace cimom
