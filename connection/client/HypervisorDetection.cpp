#include "connection/client/HypervisorDetection.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <locale>
#include <sstream>

#include "cimhttp/PegClient.h"
#include "connection/client/Waiting.h"
#include "provider/contract/Log.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

// The major number of a version such as "5.0.0 build-469512"; 0 when the text does not begin with a number.
int MajorVersion(const Pegasus::CIMInstance& identity) {
    const Pegasus::CIMConstProperty property =
        identity.getProperty(identity.findProperty(Pegasus::CIMName("VersionString")));
    std::istringstream text(ToText(property.getValue().toString()));
    text.imbue(std::locale::classic());  // the host's own may read "4.1.0" as one grouped number
    int major = 0;
    text >> major;
    return major;
}

}  // namespace

bool& HypervisorDetectionDone() {
    static bool done = false;
    return done;
}

void DetectHypervisor(PegClient* client, Hypervisor& hypervisor) {
    if (HypervisorDetectionDone()) {
        return;
    }
    HypervisorDetectionDone() = true;
    if (client == nullptr) {
        return;
    }
    const Pegasus::Array<Pegasus::CIMInstance> identities =
        client->EnumerateInstances("root/cimv2", "VMware_HypervisorSoftwareIdentity", kDetectionTimeoutMs,
                                   true, true, false, false, Pegasus::CIMPropertyList());
    if (identities.size() == 0) {
        return;
    }
    hypervisor.isEsxi = true;
    try {
        if (MajorVersion(identities[0]) >= 5) {
            hypervisor.isEsxi5 = true;
        }
    } catch (const Pegasus::Exception&) {
        LogTrace("TCimHTTPNamespace::Pegasus Client connect VMware_HypervisorSoftwareIdentity");
    }
}

}  // namespace NQELVSK20
