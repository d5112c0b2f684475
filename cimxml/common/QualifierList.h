#pragma once

#include <Pegasus/Common/CIMQualifier.h>

#include "cimxml/common/CIMQualifierRep.h"
#include "cimxml/common/NamedList.h"

namespace Pegasus {

using QualifierList = NamedList<CIMQualifier>;

}  // namespace Pegasus
