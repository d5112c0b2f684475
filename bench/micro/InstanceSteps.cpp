#include <Pegasus/Client/CIMClient.h>

#include <boost/pointer_cast.hpp>
#include <memory>
#include <stdexcept>

#include "bench/PluginWork.h"
#include "bench/Sample.h"
#include "bench/SampleServer.h"
#include "bench/SmallRequest.h"
#include "bench/micro/Steps.h"
#include "model/ClassNamespace.h"
#include "model/RemoteInstanceReader.h"
#include "model/TCimHTTPClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"

namespace bench {

using namespace NQELVSK20;

namespace {

/// A class of the plug-in with an instance of it, as the client library has it, and who reads such. Connected
/// to a server that is gone: nothing more is asked.
struct Source {
    boost::shared_ptr<TCimHTTPNamespace> nameSpace;
    boost::shared_ptr<TCimHTTPClass> cimClass;
    Pegasus::CIMInstance remote;
    std::unique_ptr<RemoteInstanceReader> reader;
};

std::shared_ptr<Source> MakeSource(const char* className) {
    auto source = std::make_shared<Source>();
    const SampleServer server;
    source->nameSpace = ConnectedNamespace({SampleServer::Address()});
    source->cimClass =
        boost::dynamic_pointer_cast<TCimHTTPClass>(source->nameSpace->GetClass(className, TContext()));
    const auto instances = ConnectedClient(SampleServer::Address(), false)
                               ->enumerateInstances(Pegasus::CIMNamespaceName(kNamespace),
                                                    Pegasus::CIMName(className), true, true, false, false);
    if (!source->cimClass || instances.size() == 0) {
        throw std::runtime_error("there is no instance of " + std::string(className));
    }
    source->remote = instances[0];
    const auto nameSpace = ClassNamespace::Behind(source->nameSpace);
    source->reader =
        std::make_unique<RemoteInstanceReader>(nameSpace, source->cimClass, nameSpace->RemoteNodes().front());
    return source;
}

std::size_t ReadValues(const ICIMInstance& instance) {
    std::size_t count = 0;
    instance.EnumerateProperties(
        [&](boost::shared_ptr<ICIMProperty> property) {
            count += property->GetValue(TContext()).IsNull() ? 0U : 1U;
            return true;
        },
        TContext());
    return count;
}

void AddClass(const char* className) {
    const auto source = MakeSource(className);
    const boost::shared_ptr<ICIMInstance> instance = source->reader->Read(source->remote);
    if (!instance || ReadValues(*instance) < source->remote.getPropertyCount() / 2) {
        throw std::runtime_error(std::string(className) + ": an instance was not filled");
    }
    const std::string what =
        std::string(className) + ", " + std::to_string(source->remote.getPropertyCount()) + " properties";
    AddStep("instances/fill " + what, [source] { return source->reader->Read(source->remote); });
    AddStep("instances/read each value of " + what, [instance] { return ReadValues(*instance); });
    AddStep("instances/path of " + what, [instance] { return instance->GetReference(TContext()).GetPath(); });
}

}  // namespace

void AddInstances() {
    AddClass(kManyClass);
    AddClass("OMC_ProcessorSlot");
}

}  // namespace bench
