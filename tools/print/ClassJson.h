#pragma once

#include <nlohmann/json_fwd.hpp>

#include "tools/machine/RemoteDefinitions.h"
#include "tools/values/ClassSchema.h"

namespace tool {

/// A class in JSON: {"name", "superclass", "qualifiers": {NAME: VALUE}, "properties": [{"name", "type",
/// "array", "qualifiers"}], "methods": [{"name", "type", "parameters": [{"name", "type", "array"}]}]}, with
/// CIM's type names. With `all` inherited members are there too, and every member has its "origin".
nlohmann::ordered_json jsonClass(const ClassSchema& schema, const RemoteDefinitions& definitions, bool all);

}  // namespace tool
