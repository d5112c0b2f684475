#include "bench/micro/Steps.h"
#include "namespace/names/Names.h"

namespace bench {

void AddNames() {
    const std::string name = "CIM_EnabledLogicalDevice";
    const std::string same = "cim_enabledlogicaldevice";
    const std::string path =
        "root/cimv2:OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 3\"";
    AddStep("names/NormalizeName of 24 letters", [=] { return NQELVSK20::NormalizeName(name); });
    AddStep("names/NormalizeName of 8 letters", [] { return NQELVSK20::NormalizeName("DeviceID"); });
    AddStep("names/EqualByName", [=] { return NQELVSK20::EqualByName(name, same); });
    AddStep("names/LessByName", [=] { return NQELVSK20::LessByName(name, same); });
    AddStep("names/CanonicalPath", [=] { return NQELVSK20::CanonicalPath(path); });
}

}  // namespace bench
