// What a host gives for a host's name, a user, a password or a name that holds more than that: nothing of it
// is sent, and each line of the log stays one.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

class InjectionTest : public PluginTest {
protected:
    static Names Spoiled(const std::string& text) {
        return {text + "\r\nX-Other: 1",
                text + std::string("\0\r\nX-Other: 1", 13),
                text + "\nX",
                text + " ",
                text + "@x",
                text + "\x01"};
    }

    bool HasLineBreaks() const {
        return std::any_of(log_.Lines().begin(), log_.Lines().end(), [](const RecordingLogger::Line& line) {
            return line.second.find_first_of("\r\n") != std::string::npos;
        });
    }

    TestMachine machine_;
};

TEST_F(InjectionTest, ByTheNameOfAHostConnectsToNobody) {
    for (const std::string& host : Spoiled(machine_.Host(0))) {
        const auto nameSpace = MakeNamespace();
        nameSpace->connect(host, "anna", "one");
        EXPECT_EQ(
            log_.LinesWith("InvalidLocatorException in PegClient::HTTPSConnect(): Invalid locator: ").size(),
            1U);
        EXPECT_FALSE(HasLineBreaks()) << host;
        EXPECT_FALSE(nameSpace->GetClass("OMC_NumericSensor", TContext()));
        log_.Clear();
    }
    EXPECT_EQ(machine_.Server().connectionsAccepted(), 0U);
}

TEST_F(InjectionTest, ByUserOrPasswordConnectsToNobody) {
    const auto connect = [&](const std::string& user, const std::string& password) {
        const auto nameSpace = MakeNamespace();
        nameSpace->connect(machine_.Host(0), user, password);
        EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPSConnect(): Cannot connect to " +
                                 machine_.Host(0) + ":5989. The ")
                      .size(),
                  1U);
        EXPECT_FALSE(HasLineBreaks());
        log_.Clear();
    };
    for (const std::string& end : {std::string("\r\nX-Other: 1"), std::string("\n"), std::string(1, '\0')}) {
        connect("anna" + end, "one");
        connect("anna", "one" + end);
    }
    connect("anna:one", "");
    EXPECT_EQ(machine_.Server().connectionsAccepted(), 0U);
}

TEST_F(InjectionTest, ByTheNameOfANamespaceIsRefused) {
    for (const std::string& name : Spoiled("root/cimv2")) {
        EXPECT_EQ(StatusOf([&] { MakeNamespace(name); }), eVSKRemoteFailure) << name;
    }
    const auto nameSpace = Connected(machine_);
    Names names;
    for (const std::string& name : Spoiled("root/cimv2")) {
        EXPECT_THROW(nameSpace->EnumerateClassNames(name, "CIM_Fan", names, false), Pegasus::Exception);
        EXPECT_THROW(nameSpace->EnumerateInstanceNames(name, "CIM_Fan", names), Pegasus::Exception);
    }
    EXPECT_TRUE(machine_.Requests().empty());
}

TEST_F(InjectionTest, ByTheNameOfAClassOrAMethodIsRefused) {
    const auto nameSpace = Connected(machine_);
    const auto sensor = nameSpace->GetClass("OMC_NumericSensor", TContext());
    ASSERT_TRUE(sensor);
    machine_.ClearRequests();
    Names names;
    for (const std::string& name : Spoiled("OMC_NumericSensor")) {
        EXPECT_FALSE(nameSpace->GetClass(name, TContext())) << name;
        EXPECT_ANY_THROW(nameSpace->AllocateClass(name, {}, TContext())) << name;
        EXPECT_THROW(nameSpace->EnumerateClassNames("root/cimv2", name, names, false), Pegasus::Exception);
        EXPECT_THROW(nameSpace->EnumerateInstanceNames("root/cimv2", name, names), Pegasus::Exception);
        TCIMValue result;
        TContext outputs;
        TCIMReference object{nameSpace, TContext()};
        object.SetPath("OMC_NumericSensor.DeviceID=\"1\"");
        EXPECT_ANY_THROW(sensor->InvokeMethod(result, object, name, TContext(), outputs, TContext())) << name;
        EXPECT_EQ(machine_.Requests(), Names()) << name;
    }
}

}  // namespace
}  // namespace NQELVSK20
