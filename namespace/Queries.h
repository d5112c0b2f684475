#pragma once

#include <string>
#include <vector>

namespace Pegasus {
class CIMName;
class CIMNamespaceName;
}  // namespace Pegasus

namespace NQELVSK20 {

class PegClient;

// Questions that a namespace passes straight to a server. A null client answers nothing.

/// The direct subclasses of a class, or the top-level classes when its name is empty. Throws the remote
/// library's exception for a malformed name.
std::vector<std::string> QueryClassNames(PegClient* client, const std::string& nameSpace,
                                         const std::string& className);

/// The paths of a class's instances. Throws likewise.
std::vector<std::string> QueryInstanceNames(PegClient* client, const std::string& nameSpace,
                                            const std::string& className);

/// Reads every property of every instance of a class once, to show that it can be read.
void WalkInstances(PegClient* client, const Pegasus::CIMNamespaceName& nameSpace,
                   const Pegasus::CIMName& className);

}  // namespace NQELVSK20
