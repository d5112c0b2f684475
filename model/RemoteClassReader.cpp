#include "model/RemoteClassReader.h"

#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>

#include <boost/pointer_cast.hpp>
#include <utility>

#include "connection/Log.h"
#include "connection/PegText.h"
#include "connection/TCimHTTPNamespace.h"
#include "convert/ScopeAndFlavor.h"
#include "convert/ToCore.h"
#include "convert/TypeMapping.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifier.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "namespace/TNamespaceMembers.h"
#include "vskcore/ICIMParameterDecl.h"

namespace NQELVSK20 {

RemoteClassReader::RemoteClassReader(boost::shared_ptr<TCimHTTPNamespace> nameSpace,
                                     boost::shared_ptr<TCimHTTPClass> target)
    : namespace_(std::move(nameSpace)), target_(std::move(target)) {}

void RemoteClassReader::Read(const Pegasus::CIMClass& definition) {
    ReadQualifiers(definition, ICIMQualifierDecl::eScopeClass, *target_);
    for (Pegasus::Uint32 i = 0; i < definition.getPropertyCount(); ++i) {
        ReadProperty(definition.getProperty(i));
    }
    target_->AddNodeProperty();
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
    if (auto known = namespace_->GetQualifierDecl(name, TContext())) {
        return known;
    }
    const auto flavor = static_cast<ICIMQualifierDecl::EFlavor>(ToCoreFlavor(remote.getFlavor()));
    const boost::shared_ptr<TCimHTTPQualifierDecl> made(new TCimHTTPQualifierDecl(
        namespace_, name, TCIMValue(ToCoreType(remote.getType(), false), 0), scope, flavor));
    TNamespaceMembers::AddQualifierDecl(*namespace_, made);
    return made;
}

void RemoteClassReader::ReadProperty(const Pegasus::CIMConstProperty& remote) {
    const std::string name = ToText(remote.getName());
    const std::string key = TCimHTTPNamespace::NormalizeName(name);
    const auto declaration = target_->AllocatePropertyDecl(name, TCIMValue(), TContext());
    declaration->SetValue(TCIMValue(ToCoreType(remote.getType(), remote.isArray()), 0), TContext());
    ReadQualifiers(remote, ICIMQualifierDecl::eScopeProperty, *declaration);
    const bool isNew = target_->properties_.emplace(key, declaration).second;
    if (isNew && remote.getType() == Pegasus::CIMTYPE_REFERENCE) {
        target_->referencedClassNames_[key] = ToText(remote.getReferenceClassName());
    }
}

void RemoteClassReader::ReadMethod(const Pegasus::CIMConstMethod& remote) {
    const std::string name = ToText(remote.getName());
    const std::string key = TCimHTTPNamespace::NormalizeName(name);
    const auto method = target_->AllocateMethodDecl(name, ToCoreType(remote.getType(), false), TContext());
    for (Pegasus::Uint32 i = 0; i < remote.getParameterCount(); ++i) {
        ReadParameter(remote.getParameter(i), *method);
    }
    target_->methods_.emplace(key, method);
}

void RemoteClassReader::ReadParameter(const Pegasus::CIMConstParameter& remote, ICIMMethodDecl& method) {
    method
        .AllocateParameterDecl(ToText(remote.getName()), ToCoreType(remote.getType(), remote.isArray()),
                               TContext())
        ->Commit(TContext());
}

}  // namespace NQELVSK20
