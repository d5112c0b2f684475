#include "namespace/Queries.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include "cimhttp/PegClient.h"
#include "connection/client/Waiting.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

// The library's names are built for what their constructors refuse: a malformed name never reaches a server.
void CheckNames(const std::string& nameSpace, const std::string& className) {
    FromNamespace(nameSpace);
    FromName(className);
}

void ReadProperty(const Pegasus::CIMInstance& instance, Pegasus::Uint32 index) {
    try {
        const Pegasus::CIMConstProperty property = instance.getProperty(index);
        property.getName();
        property.getValue().toString();
    } catch (const Pegasus::Exception&) {
        // One unreadable property does not end the walk.
    }
}

void ReadInstance(const Pegasus::CIMInstance& instance) {
    try {
        instance.getPath().toString();
        const Pegasus::Uint32 count = instance.getPropertyCount();
        for (Pegasus::Uint32 i = 0; i < count; ++i) {
            ReadProperty(instance, i);
        }
    } catch (const Pegasus::Exception&) {
        // One unreadable instance does not end the walk.
    }
}

}  // namespace

std::vector<std::string> QueryClassNames(PegClient* client, const std::string& nameSpace,
                                         const std::string& className) {
    CheckNames(nameSpace, className);
    // Always shallow, whatever the flag that hosts ask with: kept, hosts rely on it.
    return client == nullptr ? std::vector<std::string>()
                             : client->EnumerateClassNames(nameSpace, className, false, kClassNamesTimeoutMs);
}

std::vector<std::string> QueryInstanceNames(PegClient* client, const std::string& nameSpace,
                                            const std::string& className) {
    CheckNames(nameSpace, className);
    return client == nullptr ? std::vector<std::string>()
                             : client->EnumerateInstanceNames(nameSpace, className, kInstanceNamesTimeoutMs);
}

void WalkInstances(PegClient* client, const Pegasus::CIMNamespaceName& nameSpace,
                   const Pegasus::CIMName& className) {
    if (client == nullptr) {
        return;
    }
    const Pegasus::Array<Pegasus::CIMInstance> instances =
        client->EnumerateInstances(ToText(nameSpace), ToText(className), kWalkTimeoutMs, true, true, false,
                                   false, Pegasus::CIMPropertyList());
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        ReadInstance(instances[i]);
    }
}

}  // namespace NQELVSK20
