// Whether the server is a VMware ESXi host, and whether it runs version 5 or later.

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <locale>
#include <sstream>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

namespace {

constexpr unsigned int kDetectionTimeoutMs = 10000;

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

bool TCimHTTPNamespace::detectionDone_ = false;

void TCimHTTPNamespace::CheckIsESXi5() {
    if (detectionDone_) {
        return;
    }
    detectionDone_ = true;
    if (firstClient_ == nullptr) {
        return;
    }
    const Pegasus::Array<Pegasus::CIMInstance> identities = firstClient_->EnumerateInstances(
        "root/cimv2", "VMware_HypervisorSoftwareIdentity", kDetectionTimeoutMs, true, true, false, false,
        Pegasus::CIMPropertyList());
    if (identities.size() == 0) {
        return;
    }
    isEsxi_ = true;
    try {
        if (MajorVersion(identities[0]) >= 5) {
            isEsxi5_ = true;
        }
    } catch (const Pegasus::Exception&) {
        LogTrace("TCimHTTPNamespace::Pegasus Client connect VMware_HypervisorSoftwareIdentity");
    }
}

}  // namespace NQELVSK20
