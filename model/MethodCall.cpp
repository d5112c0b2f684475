#include "model/MethodCall.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

#include "cimhttp/PegClient.h"
#include "convert/ToCore.h"
#include "convert/ToRemote.h"
#include "provider/contract/PegText.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

namespace {

using RemoteParameters = Pegasus::Array<Pegasus::CIMParamValue>;

RemoteParameters ToRemoteParameters(const TContext& inputs) {
    RemoteParameters parameters;
    for (const auto& [name, value] : inputs) {
        Pegasus::CIMValue remote;
        ConvertToRemoteValue(value, remote);
        parameters.append(Pegasus::CIMParamValue(FromText(name), remote, true));
    }
    return parameters;
}

void AddOutputs(const RemoteParameters& parameters, const boost::shared_ptr<ICIMClass>& cimClass,
                TContext& outputs) {
    for (Pegasus::Uint32 i = 0; i < parameters.size(); ++i) {
        const std::string name = ToText(parameters[i].getParameterName());
        const Pegasus::CIMValue remote = parameters[i].getValue();
        TCIMValue value;
        ConvertToCoreValue(name, remote, remote.getType(), remote.isArray(), value, cimClass);
        outputs.emplace(name, value);
    }
}

}  // namespace

TCIMValue CallMethod(const MethodTarget& target, const std::string& method, const TContext& inputs,
                     TContext& outputs, const boost::shared_ptr<ICIMClass>& cimClass) {
    const Pegasus::CIMObjectPath path(FromText(target.object.GetPath()));
    const Pegasus::CIMName remoteMethod(FromText(method));
    const RemoteParameters remoteInputs = ToRemoteParameters(inputs);
    RemoteParameters remoteOutputs;
    const Pegasus::CIMValue returned = target.client.InvokeMethod(
        target.nameSpace, path, ToText(remoteMethod), remoteInputs, remoteOutputs, target.timeout);
    TCIMValue result;
    if (!returned.isNull()) {  // a void method returns nothing, which is not the same as false
        ConvertToCoreValue(method, returned, returned.getType(), returned.isArray(), result, cimClass);
    }
    AddOutputs(remoteOutputs, cimClass, outputs);
    return result;
}

}  // namespace NQELVSK20
