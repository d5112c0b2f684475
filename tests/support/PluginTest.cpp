#include "tests/support/PluginTest.h"

#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "connection/client/Waiting.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {

PluginTest::PluginTest() : common_(new TQELCNamespace), union_(new TInmemUnion) {
    common_->SetUpcallNamespace(union_, TContext());
    ReplaceWaiting({[this](unsigned int milliseconds) {
                        pauses_.push_back(milliseconds);
                        if (whilePausing_) {
                            whilePausing_();
                        }
                    },
                    [this](unsigned int milliseconds) {
                        timeouts_.push_back(milliseconds);
                        const bool isShortened =
                            milliseconds <= longestShortened_ && milliseconds != kConnectTimeoutMs;
                        return isShortened ? shortened_.value_or(milliseconds) : milliseconds;
                    }});
    TCimHTTPNamespaceTestAccess::SetDetectionDone(true);
}

PluginTest::~PluginTest() {
    ReplaceWaiting({});
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
