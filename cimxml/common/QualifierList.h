#pragma once

#include <Pegasus/Common/CIMQualifier.h>

#include "cimxml/common/CIMQualifierRep.h"
#include "cimxml/common/NamedList.h"

namespace Pegasus {

using QualifierList = NamedList<CIMQualifier>;

/// Whether the qualifier is there and is a boolean that is true.
bool isTrue(const QualifierList& qualifiers, const CIMName& name);

}  // namespace Pegasus
