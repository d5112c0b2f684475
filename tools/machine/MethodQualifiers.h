#pragma once

#include <string>

#include "tools/machine/RemoteDefinitions.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/Qualifiers.h"

namespace tool {

/// The qualifiers of a method or of one of its parameters: those that a server told, which the plug-in leaves
/// out, or else those of the declaration, which is then one that the plug-in took over from its host.
QualifierValues methodQualifiers(const ClassSchema::Method& method, const RemoteDefinitions& definitions);
QualifierValues parameterQualifiers(const ClassSchema::Method& method, const std::string& parameter,
                                    const RemoteDefinitions& definitions);

}  // namespace tool
