#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Pegasus {
class CIMNamespaceName;
}

namespace NQELVSK20 {

class ICIMClass;
class ICIMNamespace;
class PegClient;
class TCimHTTPClass;
class TCimHTTPQualifierDecl;

/// Everything that a remote namespace knows, in one place, so that a copy of a namespace is a copy of this:
/// pointers are copied, the remote objects behind them are shared.
struct TNamespaceState {
    using NodeClients = std::vector<std::map<std::string, PegClient*>>;

    boost::shared_ptr<Pegasus::CIMNamespaceName> remoteName_;
    PegClient* firstClient_ = nullptr;  // kept reachable, and alive, until the process ends
    NodeClients nodes_;
    std::vector<boost::shared_ptr<PegClient>> ownedClients_;  // those of nodes 1 and up, in node order
    std::map<std::string, boost::shared_ptr<TCimHTTPQualifierDecl>> qualifierDecls_;
    std::map<std::string, boost::shared_ptr<TCimHTTPClass>> classes_;
    std::vector<boost::weak_ptr<TCimHTTPClass>> ownClasses_;  // every one allocated that may be alive still
    boost::shared_ptr<ICIMClass> rootClass_;
    bool replaceDuplicates_ = false;
    boost::shared_ptr<ICIMNamespace> upcall_;
    bool connected_ = false;
    std::string pluginName_;
    std::string name_;
    std::set<std::string> pending_;  // keys of the classes being fetched: a class and its descendants
    std::set<std::string>
        failedCopies_;  // keys of the classes whose copy from the union namespace failed just now
    bool multiNode_ = false;
    std::vector<std::string> hosts_;
    std::vector<std::string> users_;
    std::vector<std::string> passwords_;
    unsigned int port_ = 0;
    bool isEsxi5_ = false;
    bool isEsxi_ = false;
};

}  // namespace NQELVSK20
