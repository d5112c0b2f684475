#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "cimhttp/ClassNamespaceAccess.h"
#include "connection/client/Nodes.h"
#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

class ICIMClass;
class ICIMQualifierDecl;
class TCimHTTPClass;
class TCimHTTPQualifierDecl;

/// What a class and its members see of their namespace, and nothing else of it.
class ClassNamespace {
public:
    virtual ~ClassNamespace() = default;

    /// What the classes of a host's namespace see of it; shares ownership of the namespace. Empty for a
    /// namespace that is none of this plug-in's, and for none.
    static boost::shared_ptr<ClassNamespace> Behind(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
        auto* const access = dynamic_cast<ClassNamespaceAccess*>(nameSpace.get());
        return access == nullptr ? boost::shared_ptr<ClassNamespace>()
                                 : boost::shared_ptr<ClassNamespace>(nameSpace, &access->ForClasses());
    }

    /// The nodes in node order; none before the namespace's Init.
    virtual std::vector<RemoteNode> RemoteNodes() const = 0;

    /// Node 0's client, null before Init; and the client that questions about the class tree go to.
    virtual PegClient* FirstClient() const = 0;
    virtual PegClient* ClientToAsk() const = 0;

    virtual bool IsConnected() const = 0;
    virtual bool ServesHypervisor() const = 0;

    /// The name that the namespace was allocated with, and the one that requests go to; the latter is empty,
    /// and false returned, before Init.
    virtual const std::string& OwnName() const = 0;
    virtual bool GetRemoteName(std::string& name) const = 0;

    /// The class of a name; empty when there is none. Never throws.
    virtual boost::shared_ptr<ICIMClass> FindClass(const std::string& name) = 0;

    /// The class "<root>"; empty while the namespace is being initialised.
    virtual boost::shared_ptr<ICIMClass> RootClass() const = 0;

    /// Whether a class is to be copied from the host's union namespace instead of being read from the nodes.
    /// `where` is the place that asks, for the log. Passes on what the union namespace throws.
    virtual bool IsCopiedFromUnion(const std::string& className, const std::string& where) const = 0;

    /// Enters a class into the cache; throws status 16 for a duplicate that may not replace the first. The
    /// class that was replaced; empty when there was none.
    virtual boost::shared_ptr<TCimHTTPClass> Enter(const boost::shared_ptr<TCimHTTPClass>& cimClass) = 0;

    /// The qualifier declaration of a name, empty when there is none; and entering one, which throws status
    /// 16 likewise.
    virtual boost::shared_ptr<ICIMQualifierDecl> FindQualifierDecl(const std::string& name) const = 0;
    virtual void Enter(const boost::shared_ptr<TCimHTTPQualifierDecl>& declaration) = 0;
};

}  // namespace NQELVSK20
