#pragma once

#include <Pegasus/Common/CIMType.h>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// The host's type code of a remote type. Types that have none (embedded objects) give the unknown codes.
TCIMValue::TCIMType ToCoreType(Pegasus::CIMType type, bool isArray);

}  // namespace NQELVSK20
