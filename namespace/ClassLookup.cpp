// How a namespace answers for a class: from its cache, from the host's union namespace, or from the server.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Exception.h>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/DefinitionTimeout.h"
#include "model/TCimHTTPClass.h"
#include "namespace/PendingClass.h"
#include "namespace/RaisedTimeout.h"
#include "namespace/UnionLookup.h"
#include "qelc/VQMInfo.h"
#include "union/TUnionNamespace.h"
#include "vskcore/TCIMCopy.h"

namespace NQELVSK20 {

namespace {

constexpr const char* kPluginVersion = "1.0";

// Every log line of one lookup begins so.
std::string LookupOf(const std::string& name) {
    return "TCimHTTPNamespace::GetClass " + name;
}

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

// The property that tells of each instance which node it came from.
void DeclareNodeId(TCimHTTPClass& cimClass) {
    const auto declaration = cimClass.AllocatePropertyDecl("NodeID", TCIMValue(), TContext());
    declaration->SetValue(TCIMValue(""), TContext());
    cimClass.AddPropertyDecl(declaration, TContext());
}

}  // namespace

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::GetClass(const std::string& name, TContext context) {
    if (!connected_) {
        return {};
    }
    try {
        return LookUpClass(name, context);
    } catch (...) {
        // The host asks for classes that may not exist, in names that may be none; it is told "no class".
        return {};
    }
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::LookUpClass(const std::string& name,
                                                            const TContext& context) {
    if (name.empty() || name == "<root>") {
        LogTrace(LookupOf(name) + " : return <root>");
        return rootClass_;
    }
    if (IsAbsentOnSingleNode(name)) {
        LogTrace("TCimHTTPNamespace::GetClass skip QEL_RemoteNode");
        return {};
    }
    const std::string key = NormalizeName(name);
    LogTrace("TCimHTTPNamespace::GetClass from Pegasus for: " + name);
    if (const auto cached = CachedClass(key)) {
        LogTrace(LookupOf(name) + " Found in TCimHTTPNamespace");
        return cached;
    }
    CheckIsESXi5();
    if (!isEsxi_) {
        if (const auto copied = TakeFromUnion(name, key, context)) {
            return copied;
        }
    }
    auto fetched = FetchClass(name, key, context);
    failedCopies_.erase(key);
    return fetched;
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::TakeFromUnion(const std::string& name, const std::string& key,
                                                              const TContext& context) {
    boost::shared_ptr<TCimHTTPClass> copied;
    try {
        copied = CopyFromUnion(name, key, context);
    } catch (...) {
        LogTrace(LookupOf(name) + " Catch an exception while trying to get this class in union namespace");
        GiveUpCopy(key);
        return {};
    }
    if (!copied) {
        return {};
    }
    LogTrace(LookupOf(name) + " Now it is Found in TCimHTTPNamespace from union namespace");
    // A class that another plug-in stamped refuses a stamp of ours; its instances are marked all the same.
    const bool isStamped = Succeeds([&] { Stamp(*copied); });
    const bool isMarked = Succeeds([&] { DeclareNodeId(*copied); });
    if (!isStamped || !isMarked) {
        LogTrace("Catch exception for construct plugin name and version");
    }
    return copied;
}

boost::shared_ptr<TCimHTTPClass> TCimHTTPNamespace::CopyFromUnion(const std::string& name,
                                                                  const std::string& key,
                                                                  const TContext& context) {
    const auto unionNamespace = UnionNamespaceBehind(*this, LookupOf(name));
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
    TCIMCopy::CopyClass(found, shared_from_this());
    auto copied = CachedClass(key);
    if (!copied) {
        GiveUpCopy(key);
    }
    return copied;
}

// The lookup goes on with the nodes, which then define the class although the union namespace knows it.
void TCimHTTPNamespace::GiveUpCopy(const std::string& key) {
    failedCopies_.insert(key);
    const auto half = classes_.find(key);
    if (half != classes_.end()) {
        half->second->LeaveTree();
        half->second->LeaveNamespace();
        classes_.erase(half);
    }
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::FetchClass(const std::string& name, const std::string& key,
                                                           const TContext& context) {
    try {
        return BuildFetchedClass(name, key, context);
    } catch (const Pegasus::ConnectionTimeoutException& error) {
        LogTrace("TCimHTTPNamespace::GetClass after AllocateClass from Pegasus for: " + name +
                 " returned exception: " + ToText(error));
        return {};
    } catch (...) {
        return {};
    }
}

Pegasus::CIMClass TCimHTTPNamespace::FetchDefinition(const std::string& name, const TContext& context) {
    const Pegasus::CIMClass definition = firstClient_->GetClass(
        ToText(*remoteName_), name, RaisedTimeout(context, "GCTimeout", kDefinitionTimeoutMs), false, true,
        false, Pegasus::CIMPropertyList());
    // The client keeps its time-outs to itself; here one is told from "no such class" again.
    if (definition.isUninitialized() && firstClient_->LastRequestTimedOut()) {
        throw Pegasus::ConnectionTimeoutException();
    }
    return definition;
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::BuildFetchedClass(const std::string& name,
                                                                  const std::string& key,
                                                                  const TContext& context) {
    const PendingClass pending(pending_, key);
    if (!pending.IsAllowed() || firstClient_ == nullptr || !remoteName_) {
        return {};
    }
    const Pegasus::CIMClass definition = FetchDefinition(name, context);
    const std::string className = ToText(definition.getClassName());
    ICIMNamespace& self = *this;
    const auto superclass = self.GetClass(ToText(definition.getSuperClassName()), TContext());
    if (!superclass) {
        return {};
    }
    const auto built =
        boost::dynamic_pointer_cast<TCimHTTPClass>(AllocateClass(className, superclass, context));
    Stamp(*built);
    built->Commit(TContext());
    if (const auto cached = CachedClass(key)) {
        LogTrace(LookupOf(name) + " Now it is Found in TCimHTTPNamespace");
        return cached;
    }
    LogError(LookupOf(name) + " Not Found - Something Wrong");
    return built;
}

void TCimHTTPNamespace::Stamp(TCimHTTPClass& cimClass) const {
    const auto add = [&](const char* qualifier, const std::string& value) {
        const auto declaration = GetQualifierDecl(qualifier, TContext());
        cimClass.AddQualifier(cimClass.AllocateQualifier(declaration, TCIMValue(value), TContext()),
                              TContext());
    };
    add("PLUGINNAME", pluginName_);
    add("PLUGINVERSION", kPluginVersion);
}

}  // namespace NQELVSK20
