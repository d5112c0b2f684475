#include "connection/client/ServerLink.h"

#include <Pegasus/Common/SSLContext.h>

#include <utility>

#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

ServerLinkMaker& ReplacedMaker() {
    static ServerLinkMaker maker;
    return maker;
}

// The bundled library has warnings. OpenPegasus has none: it refuses the answers that they are about.
template <class TClient>
auto WarningOf(const TClient& client, int) -> decltype(ToText(client.getWarning())) {
    return ToText(client.getWarning());
}

template <class TClient>
std::string WarningOf(const TClient&, long) {
    return {};
}

}  // namespace

std::string ServerLink::Warning() const {
    return WarningOf(client_, 0);
}

void ServerLink::Connect(const ServerAddress& to) {
    const auto port = static_cast<Pegasus::Uint32>(to.port);
    if (to.isEncrypted) {
        // No trust store and no callback: the certificate is not checked.
        const Pegasus::SSLContext context(Pegasus::String::EMPTY, nullptr, Pegasus::String::EMPTY);
        client_.connect(FromText(to.host), port, context, FromText(to.user), FromText(to.password));
    } else {
        client_.connect(FromText(to.host), port, FromText(to.user), FromText(to.password));
    }
}

Pegasus::CIMClass ServerLink::GetClass(const Namespace& nameSpace, const Name& className, bool localOnly,
                                       bool includeQualifiers, bool includeClassOrigin,
                                       const Properties& propertyList) {
    return client_.getClass(nameSpace, className, localOnly, includeQualifiers, includeClassOrigin,
                            propertyList);
}

Pegasus::Array<Pegasus::CIMInstance> ServerLink::EnumerateInstances(
    const Namespace& nameSpace, const Name& className, bool deepInheritance, bool localOnly,
    bool includeQualifiers, bool includeClassOrigin, const Properties& propertyList) {
    return client_.enumerateInstances(nameSpace, className, deepInheritance, localOnly, includeQualifiers,
                                      includeClassOrigin, propertyList);
}

Pegasus::CIMValue ServerLink::InvokeMethod(const Namespace& nameSpace, const Path& path, const Name& method,
                                           const Parameters& inputs, Parameters& outputs) {
    return client_.invokeMethod(nameSpace, path, method, inputs, outputs);
}

Pegasus::Array<ServerLink::Name> ServerLink::EnumerateClassNames(const Namespace& nameSpace,
                                                                 const Name& className,
                                                                 bool deepInheritance) {
    return client_.enumerateClassNames(nameSpace, className, deepInheritance);
}

Pegasus::Array<ServerLink::Path> ServerLink::EnumerateInstanceNames(const Namespace& nameSpace,
                                                                    const Name& className) {
    return client_.enumerateInstanceNames(nameSpace, className);
}

std::unique_ptr<ServerLink> MakeServerLink() {
    return ReplacedMaker() ? ReplacedMaker()() : std::make_unique<ServerLink>();
}

void ReplaceServerLinks(ServerLinkMaker maker) {
    ReplacedMaker() = std::move(maker);
}

}  // namespace NQELVSK20
