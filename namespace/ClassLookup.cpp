#include "namespace/ClassLookup.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <boost/pointer_cast.hpp>

#include "cimhttp/PegClient.h"
#include "connection/client/Nodes.h"
#include "connection/client/Waiting.h"
#include "model/TCimHTTPClass.h"
#include "namespace/ClassCache.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "qelc/TQELCNamespace.h"
#include "qelc/VQMInfo.h"
#include "union/TUnionNamespace.h"
#include "vskcore/TCIMCopy.h"

namespace NQELVSK20 {

namespace {

using NamespacePointer = boost::shared_ptr<ICIMNamespace>;
using ClassPointer = boost::shared_ptr<ICIMClass>;

constexpr const char* kPluginVersion = "1.0";

// Every log line of one lookup begins so.
std::string LookupOf(const std::string& name) {
    return "TCimHTTPNamespace::GetClass " + name;
}

// Compared to the letter; in any other letter case the class is fetched: kept, hosts rely on it.
bool IsAbsentOnSingleNode(const std::string& name) {
    return name == "QEL_RemoteNode" && VQMInfo::GetInstance()->GetNodeCount() < 2;
}

template <class TOperation>
bool Succeeds(const TOperation& operation) {
    try {
        operation();
        return true;
    } catch (...) {
        return false;
    }
}

// Marks a class as being fetched for as long as the mark lives. A class is fetched after its superclass, so
// the classes being fetched at one moment are a class and its descendants. A server whose classes derive from
// themselves, or from ever new ones, must not send the lookup round for ever.
class PendingClass {
public:
    PendingClass(std::set<std::string>& pending, const std::string& key)
        : pending_(pending),
          key_(key),
          isAllowed_(pending.size() < ClassLookup::kMaxLevels && pending.insert(key).second) {}
    ~PendingClass() {
        if (isAllowed_) {
            pending_.erase(key_);
        }
    }
    PendingClass(const PendingClass&) = delete;
    PendingClass& operator=(const PendingClass&) = delete;

    /// False when the class is its own ancestor or stands too deep.
    bool IsAllowed() const { return isAllowed_; }

private:
    std::set<std::string>& pending_;
    std::string key_;
    bool isAllowed_;
};

}  // namespace

unsigned int RaisedTimeout(const TContext& context, const std::string& key, unsigned int defaultTimeout) {
    const auto value = context.find(key);
    if (value == context.end()) {
        return defaultTimeout;
    }
    return std::max(defaultTimeout, value->second.operator unsigned int());
}

ClassPointer ClassLookup::Find(const NamespacePointer& self, const std::string& name,
                               const TContext& context) {
    if (name.empty() || name == kRootClassName) {
        LogTrace(LookupOf(name) + " : return <root>");
        return sources_.cache.Root();
    }
    if (IsAbsentOnSingleNode(name)) {
        LogTrace("TCimHTTPNamespace::GetClass skip QEL_RemoteNode");
        return {};
    }
    const std::string key = NormalizeName(name);
    LogTrace("TCimHTTPNamespace::GetClass from Pegasus for: " + name);
    if (const auto cached = sources_.cache.Find(key)) {
        LogTrace(LookupOf(name) + " Found in TCimHTTPNamespace");
        return cached;
    }
    sources_.nodes.DetectHypervisor();
    if (!sources_.nodes.Detected().isEsxi) {
        if (const auto copied = TakeFromUnion(self, name, context)) {
            return copied;
        }
    }
    auto fetched = Fetch(self, name, context);
    givenUp_.erase(key);
    return fetched;
}

// A host sets both namespaces up before it asks for classes; when one is missing, that is a broken
// precondition, and there is no union namespace.
boost::shared_ptr<TUnionNamespace> ClassLookup::UnionNamespaceBehind(const std::string& where) const {
    const auto common = boost::dynamic_pointer_cast<TQELCNamespace>(sources_.upcall);
    if (!PointerIsSet(common != nullptr, where)) {
        return {};
    }
    const auto unionNamespace = boost::dynamic_pointer_cast<TUnionNamespace>(common->GetUpcallNamespace());
    PointerIsSet(unionNamespace != nullptr, where);
    return unionNamespace;
}

// Asked also for a class whose copy failed, with the line in the log when the question fails: kept, hosts
// rely on it.
bool ClassLookup::IsCopiedFromUnion(const std::string& name, const std::string& where) const {
    const auto unionNamespace = UnionNamespaceBehind(where);
    return unionNamespace && unionNamespace->GetClass(name, TContext()) &&
           givenUp_.count(NormalizeName(name)) == 0;
}

ClassPointer ClassLookup::TakeFromUnion(const NamespacePointer& self, const std::string& name,
                                        const TContext& context) {
    boost::shared_ptr<TCimHTTPClass> copied;
    try {
        copied = CopyFromUnion(self, name, context);
    } catch (...) {
        LogTrace(LookupOf(name) + " Catch an exception while trying to get this class in union namespace");
        GiveUpCopy(NormalizeName(name));
        return {};
    }
    if (!copied) {
        return {};
    }
    LogTrace(LookupOf(name) + " Now it is Found in TCimHTTPNamespace from union namespace");
    // A class that another plug-in stamped refuses a stamp of ours; its instances are marked all the same.
    const bool isStamped = Succeeds([&] { Stamp(*self, *copied); });
    const bool isMarked = Succeeds([&] { copied->DeclareNodeId(); });
    if (!isStamped || !isMarked) {
        LogTrace("Catch exception for construct plugin name and version");
    }
    return copied;
}

boost::shared_ptr<TCimHTTPClass> ClassLookup::CopyFromUnion(const NamespacePointer& self,
                                                            const std::string& name,
                                                            const TContext& context) {
    const auto unionNamespace = UnionNamespaceBehind(LookupOf(name));
    if (!unionNamespace) {
        return {};
    }
    // Asked twice on purpose: the first question carries the caller's context and lets the union namespace
    // fetch what it holds back until somebody asks; the answer that counts is the second one's.
    static_cast<ICIMNamespace&>(*unionNamespace).GetClass(name, context);
    const auto found = unionNamespace->GetClass(name, TContext());
    if (!found) {
        return {};
    }
    TCIMCopy::CopyClass(found, self);
    const std::string key = NormalizeName(name);
    auto copied = sources_.cache.Find(key);
    if (!copied) {
        GiveUpCopy(key);
    }
    return copied;
}

// The lookup goes on with the nodes, which then define the class although the union namespace knows it.
void ClassLookup::GiveUpCopy(const std::string& key) {
    givenUp_.insert(key);
    sources_.cache.Discard(key);
}

ClassPointer ClassLookup::Fetch(const NamespacePointer& self, const std::string& name,
                                const TContext& context) {
    try {
        return Build(self, name, context);
    } catch (const Pegasus::ConnectionTimeoutException& error) {
        LogTrace("TCimHTTPNamespace::GetClass after AllocateClass from Pegasus for: " + name +
                 " returned exception: " + ToText(error));
        return {};
    } catch (...) {
        return {};
    }
}

Pegasus::CIMClass ClassLookup::FetchDefinition(const std::string& name, const TContext& context) const {
    PegClient& client = *sources_.nodes.First();
    const Pegasus::CIMClass definition = client.GetClass(
        ToText(*sources_.remoteName), name, RaisedTimeout(context, "GCTimeout", kDefinitionTimeoutMs), false,
        true, false, Pegasus::CIMPropertyList());
    // The client keeps its time-outs to itself; here one is told from "no such class" again.
    if (definition.isUninitialized() && client.LastRequestTimedOut()) {
        throw Pegasus::ConnectionTimeoutException();
    }
    return definition;
}

ClassPointer ClassLookup::Build(const NamespacePointer& self, const std::string& name,
                                const TContext& context) {
    const std::string key = NormalizeName(name);
    const PendingClass pending(pending_, key);
    if (!pending.IsAllowed() || sources_.nodes.First() == nullptr || !sources_.remoteName) {
        return {};
    }
    const Pegasus::CIMClass definition = FetchDefinition(name, context);
    const std::string className = ToText(definition.getClassName());
    const auto superclass = self->GetClass(ToText(definition.getSuperClassName()), TContext());
    if (!superclass) {
        return {};
    }
    const auto built =
        boost::dynamic_pointer_cast<TCimHTTPClass>(self->AllocateClass(className, superclass, context));
    Stamp(*self, *built);
    built->Commit(TContext());
    if (const auto cached = sources_.cache.Find(key)) {
        LogTrace(LookupOf(name) + " Now it is Found in TCimHTTPNamespace");
        return cached;
    }
    LogError(LookupOf(name) + " Not Found - Something Wrong");
    return built;
}

void ClassLookup::Stamp(ICIMNamespace& self, TCimHTTPClass& cimClass) const {
    const auto add = [&](const char* qualifier, const std::string& value) {
        const auto declaration = self.GetQualifierDecl(qualifier, TContext());
        cimClass.AddQualifier(cimClass.AllocateQualifier(declaration, TCIMValue(value), TContext()),
                              TContext());
    };
    add("PLUGINNAME", sources_.pluginName);
    add("PLUGINVERSION", kPluginVersion);
}

}  // namespace NQELVSK20
