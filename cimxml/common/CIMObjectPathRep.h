#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {

/// What a path and its copies share until one of them changes.
struct CIMObjectPathRep {
    String host;
    CIMNamespaceName nameSpace;
    CIMName className;
    Array<CIMKeyBinding> keyBindings;  // sorted by name
};

}  // namespace Pegasus
