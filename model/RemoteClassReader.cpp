#include "model/RemoteClassReader.h"

#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/Exception.h>

#include <boost/pointer_cast.hpp>
#include <utility>

#include "cimhttp/PegClient.h"
#include "connection/client/Waiting.h"
#include "convert/ToCore.h"
#include "model/ClassMembers.h"
#include "model/ClassNamespace.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifier.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {

namespace {

// A class without its definition would pass for one without members, keys and superclass.
[[noreturn]] void ThrowUndefined(bool timedOut) {
    if (timedOut) {
        throw Pegasus::ConnectionTimeoutException();
    }
    throw Pegasus::UninitializedObjectException();
}

}  // namespace

RemoteClassReader::RemoteClassReader(boost::shared_ptr<ClassNamespace> nameSpace,
                                     boost::shared_ptr<TCimHTTPClass> target, ClassMembers& members)
    : namespace_(std::move(nameSpace)), target_(std::move(target)), members_(members) {}

void RemoteClassReader::ReadFromNodes(const std::string& remoteNamespace) {
    const std::vector<RemoteNode> nodes = namespace_->RemoteNodes();
    bool isDefined = nodes.empty();
    bool timedOut = false;
    for (const RemoteNode& node : nodes) {
        const Pegasus::CIMClass definition =
            node.client.GetClass(remoteNamespace, target_->GetName(TContext()), kDefinitionTimeoutMs, true,
                                 true, false, Pegasus::CIMPropertyList());
        // A node that is down or lacks the class says nothing; the others' definitions stand.
        if (!definition.isUninitialized()) {
            Read(definition);
            isDefined = true;
        } else if (node.client.LastRequestTimedOut()) {
            timedOut = true;
        }
    }
    if (!isDefined) {
        ThrowUndefined(timedOut);
    }
}

void RemoteClassReader::Read(const Pegasus::CIMClass& definition) {
    ReadQualifiers(definition, kScopeClass, *target_);
    for (Pegasus::Uint32 i = 0; i < definition.getPropertyCount(); ++i) {
        ReadProperty(definition.getProperty(i));
    }
    members_.InsertProperty(kNodeIdKey, target_->AllocateNodeId());
    for (Pegasus::Uint32 i = 0; i < definition.getMethodCount(); ++i) {
        ReadMethod(definition.getMethod(i));
    }
}

template <class TRemote>
void RemoteClassReader::ReadQualifiers(const TRemote& remote, ICIMQualifierDecl::EScope scope,
                                       ICIMNamedElement& element) {
    for (Pegasus::Uint32 i = 0; i < remote.getQualifierCount(); ++i) {
        ReadQualifier(remote.getQualifier(i), scope, element);
    }
}

void RemoteClassReader::ReadQualifier(const Pegasus::CIMConstQualifier& remote,
                                      ICIMQualifierDecl::EScope scope, ICIMNamedElement& element) {
    const std::string name = ToText(remote.getName());
    try {
        AddQualifier(name, remote, scope, element);
    } catch (const Pegasus::CIMException&) {
        LogTrace("TCimHTTPClass::Initialize - Unable to retrieve qualifier: " + name);
    }
}

void RemoteClassReader::AddQualifier(const std::string& name, const Pegasus::CIMConstQualifier& remote,
                                     ICIMQualifierDecl::EScope scope, ICIMNamedElement& element) {
    const auto declaration = DeclarationOf(name, remote, scope);
    TCIMValue value;
    ConvertToCoreValue(name, remote.getValue(), remote.getType(), remote.isArray(), value, target_);
    const auto qualifier = element.AllocateQualifier(declaration, value, TContext());
    // The declaration is what some element was first seen to use; this one's own flavor may be another.
    boost::static_pointer_cast<TCimHTTPQualifier>(qualifier)->SetInitialFlavor(
        ToCoreQualifierFlavor(remote.getFlavor()));
    element.AddQualifier(qualifier, TContext());
}

boost::shared_ptr<ICIMQualifierDecl> RemoteClassReader::DeclarationOf(
    const std::string& name, const Pegasus::CIMConstQualifier& remote, ICIMQualifierDecl::EScope scope) {
    if (auto known = namespace_->FindQualifierDecl(name)) {
        return known;
    }
    const auto flavor = static_cast<ICIMQualifierDecl::EFlavor>(ToCoreFlavor(remote.getFlavor()));
    const boost::shared_ptr<TCimHTTPQualifierDecl> made(
        new TCimHTTPQualifierDecl(target_->GetNamespace(TContext()), name,
                                  TCIMValue(ToCoreType(remote.getType(), false), 0), scope, flavor));
    namespace_->Enter(made);
    return made;
}

void RemoteClassReader::ReadProperty(const Pegasus::CIMConstProperty& remote) {
    const std::string name = ToText(remote.getName());
    const std::string key = NormalizeName(name);
    const auto declaration = target_->AllocatePropertyDecl(name, TCIMValue(), TContext());
    declaration->SetValue(TCIMValue(ToCoreType(remote.getType(), remote.isArray()), 0), TContext());
    ReadQualifiers(remote, kScopeProperty, *declaration);
    if (remote.getType() == Pegasus::CIMTYPE_REFERENCE) {
        members_.InsertReference(key, declaration, ToText(remote.getReferenceClassName()));
    } else {
        members_.InsertProperty(key, declaration);
    }
}

void RemoteClassReader::ReadMethod(const Pegasus::CIMConstMethod& remote) {
    const std::string name = ToText(remote.getName());
    const std::string key = NormalizeName(name);
    const auto method = target_->AllocateMethodDecl(name, ToCoreType(remote.getType(), false), TContext());
    for (Pegasus::Uint32 i = 0; i < remote.getParameterCount(); ++i) {
        ReadParameter(remote.getParameter(i), *method);
    }
    members_.InsertMethod(key, method);
}

void RemoteClassReader::ReadParameter(const Pegasus::CIMConstParameter& remote, ICIMMethodDecl& method) {
    method
        .AllocateParameterDecl(ToText(remote.getName()), ToCoreType(remote.getType(), remote.isArray()),
                               TContext())
        ->Commit(TContext());
}

}  // namespace NQELVSK20
