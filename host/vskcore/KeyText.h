#pragma once

#include <string>

namespace NQELVSK20 {

class TCIMValue;

/// Appends a key binding, `name=value`, to an object path: a full stop before the first key, a comma before
/// the others. Numbers and booleans (TRUE, FALSE) stand bare, all else in quotes with `\` and `"` escaped, as
/// OpenPegasus' CIMObjectPath writes and reads them. A null value has no text in a path and is left out.
void AppendKey(std::string& path, bool& first, const std::string& name, const TCIMValue& value);

}  // namespace NQELVSK20
