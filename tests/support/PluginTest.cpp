#include "tests/support/PluginTest.h"

#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "connection/client/ServerLink.h"
#include "connection/client/Waiting.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {

class PluginTest::ObservedLink : public ServerLink {
public:
    explicit ObservedLink(PluginTest& test) : test_(test) {}

    void SetTimeout(unsigned int milliseconds) override {
        test_.timeouts_.push_back(milliseconds);
        const bool isShortened = milliseconds <= test_.longestShortened_ && milliseconds != kConnectTimeoutMs;
        ServerLink::SetTimeout(isShortened ? test_.shortened_.value_or(milliseconds) : milliseconds);
    }

private:
    PluginTest& test_;  // clients that live longer are not asked again
};

PluginTest::PluginTest() : common_(new TQELCNamespace), union_(new TInmemUnion) {
    common_->SetUpcallNamespace(union_, TContext());
    ReplacePause([this](unsigned int milliseconds) {
        pauses_.push_back(milliseconds);
        if (whilePausing_) {
            whilePausing_();
        }
    });
    ReplaceServerLinks([this] { return std::make_unique<ObservedLink>(*this); });
    TCimHTTPNamespaceTestAccess::SetDetectionDone(true);
}

PluginTest::~PluginTest() {
    ReplacePause({});
    ReplaceServerLinks({});
    THostSetup::SetNodeCount(1);
    THostSetup::SetBMCMapping({});
    THostSetup::RestoreNamespaceProviderManager();
    THostSetup::SetReferencesOwnNamespace(false);
    THostSetup::SetPrintedForm({});
    THostSetup::SetRemembersLayouts(true);
}

boost::shared_ptr<TCimHTTPNamespace> PluginTest::MakeUninitNamespace(const std::string& name,
                                                                     bool replaceDuplicates) {
    const TContext context{{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}};
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(context, replaceDuplicates, name));
    nameSpace->SetUpcallNamespace(common_, TContext());
    return nameSpace;
}

boost::shared_ptr<TCimHTTPNamespace> PluginTest::MakeNamespace(const std::string& name,
                                                               bool replaceDuplicates) {
    const auto nameSpace = MakeUninitNamespace(name, replaceDuplicates);
    nameSpace->Init();
    return nameSpace;
}

void PluginTest::ConnectTo(TCimHTTPNamespace& nameSpace, const TestMachine& machine) {
    if (machine.Hosts().size() == 1) {
        nameSpace.connect(machine.Host(0), std::string(), std::string());
        return;
    }
    const std::vector<std::string> none(machine.Hosts().size());
    nameSpace.connect(machine.Hosts(), none, none);
}

boost::shared_ptr<TCimHTTPNamespace> PluginTest::Connected(TestMachine& machine, const std::string& name,
                                                           bool replaceDuplicates) {
    const auto nameSpace = MakeNamespace(name, replaceDuplicates);
    ConnectTo(*nameSpace, machine);
    log_.Clear();
    machine.ClearRequests();
    return nameSpace;
}

}  // namespace NQELVSK20
