#include "tools/machine/MethodQualifiers.h"

#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMParameterDecl.h"

namespace tool {

using NQELVSK20::TContext;

QualifierValues methodQualifiers(const ClassSchema::Method& method, const RemoteDefinitions& definitions) {
    QualifierValues told = definitions.ofMethod(method.origin, method.name);
    return told.empty() ? valuesOf(qualifiersOf(*method.declaration)) : told;
}

QualifierValues parameterQualifiers(const ClassSchema::Method& method, const std::string& parameter,
                                    const RemoteDefinitions& definitions) {
    QualifierValues told = definitions.ofParameter(method.origin, method.name, parameter);
    const auto declared = method.declaration->GetParameterDecl(parameter, TContext());
    return told.empty() && declared ? valuesOf(qualifiersOf(*declared)) : told;
}

}  // namespace tool
