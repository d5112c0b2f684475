#include <Pegasus/Common/CIMObjectPath.h>

#include "bench/micro/Steps.h"

namespace bench {

namespace {

void AddPath(const std::string& what, const Pegasus::String& text) {
    const Pegasus::CIMObjectPath path(text);
    AddStep("paths/parse " + what, [text] { return Pegasus::CIMObjectPath(text); });
    AddStep("paths/toString " + what, [path] { return path.toString(); });
}

}  // namespace

void AddPaths() {
    AddPath(
        "two keys",
        "root/cimv2:OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 3\"");
    AddPath("two reference keys",
            "root/cimv2:OMC_SystemDevice."
            "GroupComponent=\"root/cimv2:OMC_UnitaryComputerSystem.CreationClassName=\\\"OMC_"
            "UnitaryComputerSystem\\\",Name=\\\"node-0\\\"\","
            "PartComponent=\"root/cimv2:OMC_NumericSensor.DeviceID=\\\"1.0.32.55\\\"\"");
}

}  // namespace bench
