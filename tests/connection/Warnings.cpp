// What the bundled client library reads past. OpenPegasus' refuses such answers.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "cimhttp/ClientObserver.h"
#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kWarning =
    "T_Sensor: U+FFFD was read for what is no XML character, in 2 places, the first in \"Label\"";

class Listener : public ClientObserver {
public:
    bool AttemptFailed(const ClientFailure&) override { return true; }
    void Recovered(const ClientFailure&) override {}
    void Connected(std::size_t, bool) override {}
    void Warned(std::size_t node, const std::string& subject, const std::string& text) override {
        heard_.push_back(std::to_string(node) + " " + subject + ": " + text);
    }

    Names heard_;
};

class WarningsTest : public PluginTest {
protected:
    static TestMachine::Options TwoNodes() {
        TestMachine::Options options;
        options.nodes = 2;
        return options;
    }

    /// Has the server send Latin-1 for UTF-8, as some do.
    static void SpoilUmlauts(TestMachine& machine) {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawText;
        fault.operation = "EnumerateInstances";
        fault.text = "\xC3\xBC";
        fault.instead = "\xFC";
        machine.Server().inject(fault);
    }

    static void AddSensor(TestMachine& machine, std::size_t node, const std::string& id,
                          const std::string& label) {
        machine.Repository(node).addDeclarations(
            "root/cimv2",
            Declarations({ClassXml("T_Sensor", "", KeyXml("Id", "string") + PropertyXml("Label", "string")),
                          InstanceXml("T_Sensor", PropertyXml("Id", "string", id.c_str()) +
                                                      PropertyXml("Label", "string", label.c_str()))}),
            "sensors");
    }

    static Names Labels(TCimHTTPNamespace& nameSpace) {
        Names labels;
        nameSpace.GetClass("T_Sensor", TContext())
            ->EnumerateInstances(
                [&](const boost::shared_ptr<ICIMInstance>& instance) {
                    labels.push_back(
                        std::string(instance->GetProperty("Label", TContext())->GetValue(TContext())));
                    return true;
                },
                true, TContext());
        return labels;
    }
};

TEST_F(WarningsTest, ALabelThatIsNoTextCostsItsBrokenCharactersOnlyAndIsToldOnceAnAnswer) {
    TestMachine machine(TwoNodes());
    AddSensor(machine, 0, "1",
              "\xC3\xBC"
              "b\xC3\xBC"
              "ck");
    AddSensor(machine, 0, "2", "good");
    AddSensor(machine, 1, "3", "better");
    SpoilUmlauts(machine);
    const auto nameSpace = Connected(machine);
    Listener listener;
    nameSpace->getPegClient()->SetObserver(&listener);

    EXPECT_EQ(Labels(*nameSpace), (Names{"\xEF\xBF\xBD"
                                         "b\xEF\xBF\xBD"
                                         "ck",
                                         "good", "better"}));
    const auto lines = log_.LinesWith("Warning in PegClient");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].second, std::string("Warning in PegClient::EnumerateInstances(): ") + kWarning);
    EXPECT_EQ(listener.heard_, Names{std::string("0 ") + kWarning});
    nameSpace->getPegClient()->SetObserver(nullptr);
}

TEST_F(WarningsTest, AWarningIsForgottenWithTheNextRequest) {
    TestMachine machine;
    AddSensor(machine, 0, "1",
              "\xC3\xBC"
              "b\xC3\xBC"
              "ck");
    SpoilUmlauts(machine);
    const auto nameSpace = Connected(machine);
    Labels(*nameSpace);
    log_.Clear();
    nameSpace->getPegClient()->EnumerateClassNames("root/cimv2", "", false, 5000);
    EXPECT_TRUE(log_.LinesWith("Warning").empty());
    nameSpace->getPegClient()->GetClass("root/cimv2", "T_None", 5000, true, true, false, {});
    EXPECT_TRUE(log_.LinesWith("Warning").empty());
    Labels(*nameSpace);
    EXPECT_EQ(log_.LinesWith("Warning").size(), 1U);
}

}  // namespace
}  // namespace NQELVSK20
