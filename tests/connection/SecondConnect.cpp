#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"

namespace NQELVSK20 {
namespace {

using Access = TCimHTTPNamespaceTestAccess;
using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

/// A way to connect a namespace, and the lines that it logs when the namespace is connected already.
struct ConnectForm {
    const char* name;
    std::function<void(TCimHTTPNamespace&, const std::string& host)> connect;
    Lines lines;
};

void PrintTo(const ConnectForm& form, std::ostream* out) {
    *out << form.name;
}

Lines TraceOf(const std::string& what) {
    return {{3, "Entering TCimHTTPNamespace::" + what}, {3, "Exiting TCimHTTPNamespace::" + what}};
}

void ConnectWithLists(TCimHTTPNamespace& nameSpace, std::size_t hosts, std::size_t users,
                      std::size_t passwords) {
    nameSpace.connect(Names(hosts, "elsewhere"), Names(users, "other"), Names(passwords, "other"));
}

const std::vector<ConnectForm>& ConnectForms() {
    const Lines severalNodes = TraceOf("connect - Connect to multinode cimom via http or https");
    static const std::vector<ConnectForm> forms{
        {"SingleNode",
         [](TCimHTTPNamespace& nameSpace, const std::string& host) {
             nameSpace.connect(host, "other", "other");
         },
         TraceOf("connect - Connect to single node cimom via http or https.")},
        {"SeveralNodes",
         [](TCimHTTPNamespace& nameSpace, const std::string& host) {
             nameSpace.connect(Names{host, host}, Names{"other", "other"}, Names{"other", "other"});
         },
         severalNodes},
        {"ViaHttp",
         [](TCimHTTPNamespace& nameSpace, const std::string& host) {
             nameSpace.ConnectViaHttp(host, "other", "other", 1);
         },
         TraceOf("ConnectViaHttp")},
        {"ViaHttps",
         [](TCimHTTPNamespace& nameSpace, const std::string& host) {
             nameSpace.ConnectViaHttps(host, "other", "other", 1);
         },
         TraceOf("ConnectViaHttps")},
        {"ListsOfDifferentLength",
         [](TCimHTTPNamespace& nameSpace, const std::string&) { ConnectWithLists(nameSpace, 2, 1, 2); },
         severalNodes},
        {"ListsWithoutHosts",
         [](TCimHTTPNamespace& nameSpace, const std::string&) { ConnectWithLists(nameSpace, 0, 0, 0); },
         severalNodes}};
    return forms;
}

class SecondConnectTest : public PluginTest, public ::testing::WithParamInterface<ConnectForm> {};

TEST_P(SecondConnectTest, WritesItsTwoLinesAndChangesNothing) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine.Host(0), "admin", "secret");
    Access::SetDetectionDone(false);  // a detection would show as a request
    machine.ClearRequests();
    log_.Clear();
    timeouts_.clear();
    const auto nodes = nameSpace->getPegClientVec();

    GetParam().connect(*nameSpace, machine.Host(0));

    EXPECT_EQ(log_.Lines(), GetParam().lines);
    EXPECT_EQ(machine.Requests(), Names{});
    EXPECT_EQ(timeouts_, std::vector<unsigned int>{}) << "no client was asked to connect";
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_FALSE(Access::IsMultiNode(*nameSpace));
    EXPECT_EQ(nameSpace->getPegClientVec(), nodes);
    EXPECT_EQ(Access::Hosts(*nameSpace), Names{machine.Host(0)});
    EXPECT_EQ(Access::Users(*nameSpace), Names{"admin"});
    EXPECT_EQ(Access::Passwords(*nameSpace), Names{"secret"});
    EXPECT_EQ(Access::Port(*nameSpace), 5988U);
}

INSTANTIATE_TEST_SUITE_P(EachForm, SecondConnectTest, ::testing::ValuesIn(ConnectForms()),
                         [](const auto& form) { return std::string(form.param.name); });

}  // namespace
}  // namespace NQELVSK20
