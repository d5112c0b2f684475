#include "connection/client/ServerLink.h"

#include <Pegasus/Common/SSLContext.h>

#include <utility>

#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

class LibraryLink : public ServerLink {
public:
    void Connect(const ServerAddress& to) override {
        const auto port = static_cast<Pegasus::Uint32>(to.port);
        if (to.isEncrypted) {
            // No trust store and no callback: the certificate is not checked.
            const Pegasus::SSLContext context(Pegasus::String::EMPTY, nullptr, Pegasus::String::EMPTY);
            client_.connect(FromText(to.host), port, context, FromText(to.user), FromText(to.password));
        } else {
            client_.connect(FromText(to.host), port, FromText(to.user), FromText(to.password));
        }
    }
    void Disconnect() override { client_.disconnect(); }
    void SetTimeout(unsigned int milliseconds) override { client_.setTimeout(milliseconds); }
    Pegasus::CIMClient& Library() override { return client_; }

    Pegasus::CIMClass GetClass(const Namespace& nameSpace, const Name& className, bool localOnly,
                               bool includeQualifiers, bool includeClassOrigin,
                               const Properties& propertyList) override {
        return client_.getClass(nameSpace, className, localOnly, includeQualifiers, includeClassOrigin,
                                propertyList);
    }
    Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(const Namespace& nameSpace, const Name& className,
                                                            bool deepInheritance, bool localOnly,
                                                            bool includeQualifiers, bool includeClassOrigin,
                                                            const Properties& propertyList) override {
        return client_.enumerateInstances(nameSpace, className, deepInheritance, localOnly, includeQualifiers,
                                          includeClassOrigin, propertyList);
    }
    Pegasus::CIMValue InvokeMethod(const Namespace& nameSpace, const Path& path, const Name& method,
                                   const Parameters& inputs, Parameters& outputs) override {
        return client_.invokeMethod(nameSpace, path, method, inputs, outputs);
    }
    Pegasus::Array<Name> EnumerateClassNames(const Namespace& nameSpace, const Name& className,
                                             bool deepInheritance) override {
        return client_.enumerateClassNames(nameSpace, className, deepInheritance);
    }
    Pegasus::Array<Path> EnumerateInstanceNames(const Namespace& nameSpace, const Name& className) override {
        return client_.enumerateInstanceNames(nameSpace, className);
    }

private:
    Pegasus::CIMClient client_;
};

ServerLinkMaker& ReplacedMaker() {
    static ServerLinkMaker maker;
    return maker;
}

}  // namespace

std::unique_ptr<ServerLink> MakeServerLink() {
    return ReplacedMaker() ? ReplacedMaker()() : std::make_unique<LibraryLink>();
}

void ReplaceServerLinks(ServerLinkMaker maker) {
    ReplacedMaker() = std::move(maker);
}

}  // namespace NQELVSK20
