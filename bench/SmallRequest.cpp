#include "bench/SmallRequest.h"

#include "bench/Sample.h"

namespace bench {

std::shared_ptr<Pegasus::CIMClient> ConnectedClient(const std::string& address, bool tls) {
    auto client = std::make_shared<Pegasus::CIMClient>();
    const Pegasus::String none;
    if (tls) {
        client->connect(address.c_str(), 5989, Pegasus::SSLContext(none, nullptr, none), none, none);
    } else {
        client->connect(address.c_str(), 5988, none, none);
    }
    return client;
}

bool AskForSlot(Pegasus::CIMClient& client) {
    static const Pegasus::CIMNamespaceName nameSpace(kNamespace);
    static const Pegasus::CIMObjectPath path(
        "OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 3\"");
    static const Pegasus::CIMPropertyList properties = [] {
        Pegasus::Array<Pegasus::CIMName> names;
        names.append(Pegasus::CIMName("Number"));
        return Pegasus::CIMPropertyList(names);
    }();
    return client.getInstance(nameSpace, path, false, false, false, properties).getPropertyCount() == 1;
}

Contestant::Work AskRepeatedly(const std::shared_ptr<Pegasus::CIMClient>& client, std::size_t times) {
    return [client, times] {
        std::size_t count = 0;
        for (std::size_t i = 0; i < times; ++i) {
            count += AskForSlot(*client) ? 1U : 0U;
        }
        return count;
    };
}

}  // namespace bench
