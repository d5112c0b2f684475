// How a method of a class runs on the server.

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Precondition.h"
#include "connection/TCimHTTPNamespace.h"
#include "convert/ToCore.h"
#include "convert/ToRemote.h"
#include "model/TCimHTTPClass.h"

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

void TCimHTTPClass::InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                                 const TContext& inputs, TContext& outputs, TContext) {
    const auto nameSpace = OwnNamespace("InvokeMethod");
    PegClient* const client = nameSpace ? nameSpace->getPegClient() : nullptr;
    if (!PointerIsSet(client != nullptr, "TCimHTTPClass::InvokeMethod " + name_)) {
        result = TCIMValue();
        return;
    }
    // Methods go to the namespace by its own name, not by the name that `Init` may have been given for it.
    const std::string namespaceName = nameSpace->getfCimHTTPNamespaceName();
    const Pegasus::CIMObjectPath path(FromText(object.GetPath()));
    const Pegasus::CIMName remoteMethod(FromText(method));
    const RemoteParameters remoteInputs = ToRemoteParameters(inputs);
    RemoteParameters remoteOutputs;
    const Pegasus::CIMValue returned = client->InvokeMethod(namespaceName, path, ToText(remoteMethod),
                                                            remoteInputs, remoteOutputs, timeout_);
    result = TCIMValue();
    if (!returned.isNull()) {  // a void method returns nothing, which is not the same as false
        ConvertToCoreValue(method, returned, returned.getType(), returned.isArray(), result,
                           shared_from_this());
    }
    AddOutputs(remoteOutputs, shared_from_this(), outputs);
}

}  // namespace NQELVSK20
