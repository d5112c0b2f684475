#include "bench/Sample.h"
#include "bench/micro/Steps.h"
#include "bench/micro/wire/Wire.h"
#include "cimxml/wire/RequestWriter.h"

namespace bench {

namespace {

using cimxml::RequestWriter;

const char* const kSlot =
    "OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 3\"";

Pegasus::Array<Pegasus::CIMParamValue> TwoParameters() {
    Pegasus::Array<Pegasus::CIMParamValue> parameters;
    parameters.append(Pegasus::CIMParamValue("Value", Pegasus::CIMValue(Pegasus::Uint32(70000))));
    parameters.append(Pegasus::CIMParamValue("Text", Pegasus::CIMValue(Pegasus::String("a < b & c"))));
    return parameters;
}

}  // namespace

void AddRequests() {
    const Pegasus::CIMNamespaceName nameSpace(kNamespace);
    const Pegasus::CIMName className(kManyClass);
    const Pegasus::CIMObjectPath path(kSlot);
    const auto parameters = TwoParameters();
    AddStep("encode/GetClass", [=] {
        return RequestWriter::intrinsic("1000", "GetClass", nameSpace)
            .className(className)
            .flag("LocalOnly", false, true)
            .finish();
    });
    AddStep("encode/GetInstance", [=] {
        return RequestWriter::intrinsic("1000", "GetInstance", nameSpace).instanceName(path).finish();
    });
    AddStep("encode/EnumerateInstances", [=] {
        return RequestWriter::intrinsic("1000", "EnumerateInstances", nameSpace)
            .className(className)
            .flag("DeepInheritance", false, true)
            .finish();
    });
    AddStep("encode/method call with two parameters", [=] {
        return RequestWriter::extrinsic("1000", "Echo", nameSpace, path).parameters(parameters).finish();
    });
}

}  // namespace bench
