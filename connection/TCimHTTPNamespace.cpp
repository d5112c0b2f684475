#include "connection/TCimHTTPNamespace.h"

#include <Pegasus/Common/CIMName.h>

#include <utility>

#include "connection/Log.h"
#include "connection/NodeZeroClients.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Refuse.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "splib/SPLibrary.h"

namespace NQELVSK20 {

namespace {

constexpr const char* kPluginNameKey = "pluginNameQualDeclValue";

[[noreturn]] void RefuseRemoteObject(const char* what, const Pegasus::Exception& error) {
    Refuse(eVSKRemoteFailure, kLogTrace, what + ToText(error));
}

}  // namespace

TCimHTTPNamespace::TCimHTTPNamespace(bool replaceDuplicates, std::string name) {
    replaceDuplicates_ = replaceDuplicates;
    name_ = std::move(name);
}

TCimHTTPNamespace::TCimHTTPNamespace(const TCimHTTPNamespace& other)
    : ICIMNamespace(), boost::enable_shared_from_this<TCimHTTPNamespace>(other), TNamespaceState(other) {
    DisownClasses();
}

TCimHTTPNamespace& TCimHTTPNamespace::operator=(const TCimHTTPNamespace& other) {
    if (this != &other) {
        DisconnectAllBut(other.nodes_);
        ForgetClasses();
        static_cast<TNamespaceState&>(*this) = other;
        DisownClasses();
    }
    return *this;
}

// The classes are the original's, which decides when they let go of what they hold.
void TCimHTTPNamespace::DisownClasses() {
    ownClasses_.clear();
    pending_.clear();
    failedCopies_.clear();
}

ICIMNamespace& TCimHTTPNamespace::operator=(ICIMNamespace& other) {
    if (const auto* same = dynamic_cast<const TCimHTTPNamespace*>(&other)) {
        *this = *same;
    }
    return *this;
}

TCimHTTPNamespace::~TCimHTTPNamespace() {
    disconnect();
    ForgetClasses();
}

void TCimHTTPNamespace::Initialize(TContext context) {
    const auto pluginName = context.find(kPluginNameKey);
    if (pluginName == context.end()) {
        Refuse(eVSKMissingContextValue, kLogError,
               "TCIMHTTPNamespace: 'pluginNameQualDeclValue' not passed via context");
    }
    pluginName_ = pluginName->second.operator std::string();
    rootClass_ = AllocateClass("<root>", boost::shared_ptr<ICIMClass>(), TContext());
    DeclarePluginQualifier("PLUGINNAME", "CIMXML");
    DeclarePluginQualifier("PLUGINVERSION", "");
}

void TCimHTTPNamespace::Init() {
    Init(name_);
}

void TCimHTTPNamespace::Init(std::string remoteName) {
    CreateRemoteName(remoteName);
    CreateFirstNode();
}

void TCimHTTPNamespace::CreateRemoteName(const std::string& remoteName) {
    if (remoteName_) {
        return;
    }
    try {
        remoteName_.reset(new Pegasus::CIMNamespaceName(FromText(remoteName)));
    } catch (const Pegasus::Exception& error) {
        RefuseRemoteObject("TCimHTTPNamespace:Pegasus NSP Creation Fail: ", error);
    }
}

void TCimHTTPNamespace::CreateFirstNode() {
    try {
        if (firstClient_ == nullptr) {
            firstClient_ = CreateNodeZeroClient();
        }
        AppendNode(0, firstClient_);
    } catch (const Pegasus::Exception& error) {
        RefuseRemoteObject("TCimHTTPNamespace:Pegasus Client Creation Fail: ", error);
    }
}

void TCimHTTPNamespace::AppendNode(int nodeIndex, PegClient* client) {
    nodes_.push_back({{std::to_string(SPLibrary::GetBMCMapping(nodeIndex) + 1), client}});
}

void TCimHTTPNamespace::DeInit() {
    remoteName_.reset();
    ForgetClasses();
}

}  // namespace NQELVSK20
