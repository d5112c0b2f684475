#pragma once

#include <Pegasus/Common/CIMValue.h>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// Turns a host value into a remote value of the same type. Leaves `out` as it is for a value of unknown
/// type, an array of references, and an array that was built with an array code: arrays go by the scalar code
/// of their elements. A null value is sent as what it converts to (zero, false, empty text). Text that is no
/// datetime or object path throws the remote library's exception.
void ConvertToRemoteValue(const TCIMValue& value, Pegasus::CIMValue& out);

}  // namespace NQELVSK20
