#pragma once

#include <Pegasus/Common/CIMValue.h>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// Turns a host value into a remote value of the same type. Values of unknown type and arrays of references
/// leave `out` as it is; a null value is sent as what it converts to (zero, false, empty text). Text that is
/// no datetime or object path throws the remote library's exception.
void ConvertToRemoteValue(const TCIMValue& value, Pegasus::CIMValue& out);

}  // namespace NQELVSK20
