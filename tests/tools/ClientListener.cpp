#include "tools/machine/ClientListener.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tool {

namespace {

using NQELVSK20::ClientFailure;
using ::testing::HasSubstr;
using ::testing::Not;
using Kind = ClientFailure::Kind;
using Wanted = ClientListener::Wanted;

class ClientListenerTest : public ::testing::Test {
protected:
    ClientListenerTest() {
        machine_.link(0) = {"", "", true, true};
        machine_.link(1) = {"x", "", true, false};
        listener_.beginQuestion(Wanted::kContent, "CIM_Fan");
    }

    std::string said() const { return error_.str(); }
    bool hasFailed() const { return notices_.failures() != 0; }

    bool fail(std::size_t node, Kind kind, const std::string& operation, const std::string& subject,
              const std::string& text = "Connection closed.") {
        return listener_.AttemptFailed({node, operation, subject, kind, 0, text});
    }
    bool failInstances(std::size_t node, Kind kind = Kind::kTimeout) {
        return fail(node, kind, "EnumerateInstances", "CIM_Fan");
    }
    bool failDetection(Kind kind) {
        return fail(0, kind, "EnumerateInstances", "VMware_HypervisorSoftwareIdentity");
    }
    void recover(std::size_t node, const std::string& operation, const std::string& subject) {
        listener_.Recovered({node, operation, subject, Kind::kTimeout, 0, "x"});
    }
    void failHttps(std::size_t node) {
        EXPECT_TRUE(fail(node, Kind::kCannotConnect, "HTTPSConnect", "", "no one at 5989"));
    }
    void failHttp(std::size_t node) { fail(node, Kind::kCannotConnect, "HTTPConnect", "", "no one at 5988"); }

    std::ostringstream error_;
    Progress progress_{error_, false, 0};
    Notices notices_{error_, progress_};
    Machine machine_{{{"10.0.0.1", "", ""}, {"10.0.0.2", "admin", ""}}};
    ReceivedInstances received_;
    RemoteDefinitions definitions_;
    ClientListener listener_{machine_, notices_, progress_, received_, definitions_};
};

}  // namespace

TEST_F(ClientListenerTest, SaysWhichNodeFailedAndWhatItWasAsked) {
    EXPECT_TRUE(fail(1, Kind::kCimError, "EnumerateClassNames", "CIM_Fan", "no such class"));
    EXPECT_EQ(said(),
              "cimhttp: node 2 (10.0.0.2:5988): class names below CIM_Fan: CIM error: no such class\n");
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, PassesOnWhatWasReadPastWhichIsNoFailure) {
    listener_.Warned(1, "CIM_Fan", "no character");
    listener_.Warned(1, "CIM_Fan", "no character");
    EXPECT_EQ(said(), "cimhttp: node 2 (10.0.0.2:5988): CIM_Fan: no character\n") << "once";
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, HasWordsForEveryQuestion) {
    for (const char* operation :
         {"GetClass", "EnumerateInstances", "EnumerateInstanceNames", "InvokeMethod"}) {
        fail(0, Kind::kCimError, operation, "CIM_Fan", "no");
    }
    fail(0, Kind::kCimError, "EnumerateClassNames", "", "no");
    const std::string node = "cimhttp: node 1 (10.0.0.1:5989): ";
    EXPECT_EQ(said(), node + "definition of class CIM_Fan: CIM error: no\n" + node +
                          "instances of CIM_Fan: CIM error: no\n" + node +
                          "instance names of CIM_Fan: CIM error: no\n" + node +
                          "calling CIM_Fan: CIM error: no\n" + node + "class names below: CIM error: no\n");
}

TEST_F(ClientListenerTest, SaysARepeatedFailureOnce) {
    EXPECT_TRUE(failInstances(0));
    EXPECT_EQ(said(), "") << "a second attempt follows";
    EXPECT_TRUE(failInstances(0));
    EXPECT_EQ(said(), "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: no answer in time\n");
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, ARequestFailsWithItsSecondAttempt) {
    failInstances(0);
    fail(0, Kind::kCimError, "EnumerateInstances", "CIM_Fan", "no such class");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: no answer in time\n"
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: CIM error: no such class\n");
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, AFailureThatWasOvercomeDoesNotCount) {
    failInstances(0);
    recover(0, "EnumerateInstances", "CIM_Fan");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: no answer in time; the second attempt "
              "was answered\n");
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, NodesThatFailOnceOneAfterTheOtherAreToldApart) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    for (std::size_t node = 0; node < 2; ++node) {
        fail(node, Kind::kBroken, "GetClass", "CIM_Fan");
        recover(node, "GetClass", "CIM_Fan");
    }
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): definition of class CIM_Fan: Connection closed; the second "
              "attempt was answered\n"
              "cimhttp: node 2 (10.0.0.2:5988): definition of class CIM_Fan: Connection closed; the second "
              "attempt was answered\n");
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, AFailureAfterOneThatCountedIsAnotherRequestsFirst) {
    failInstances(0);
    failInstances(0);
    const std::size_t failures = notices_.failures();
    failInstances(0);
    recover(0, "EnumerateInstances", "CIM_Fan");
    EXPECT_EQ(notices_.failures(), failures);
    EXPECT_THAT(said(), HasSubstr("the second attempt was answered"));
}

TEST_F(ClientListenerTest, AnOvercomeFailureOfAMethodWarnsThatItMayHaveRunTwice) {
    listener_.beginQuestion(Wanted::kContent, "Reset");
    fail(0, Kind::kTimeout, "InvokeMethod", "Reset");
    recover(0, "InvokeMethod", "Reset");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): calling Reset: no answer in time; the second attempt was "
              "answered, and the method may have run twice\n");
}

TEST_F(ClientListenerTest, AClassThatOnlyReferencesNameMayBeMissing) {
    fail(0, Kind::kCimError, "GetClass", "CIM_Room", "no such class");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): definition of class CIM_Room: CIM error: no such class; only "
              "references name it\n");
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, AClassThatWasAskedForOrThatItDerivesFromMayNotBeMissing) {
    fail(0, Kind::kCimError, "GetClass", "cim_fan", "no");
    EXPECT_EQ(notices_.failures(), 1U);
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    fail(0, Kind::kCimError, "GetClass", "CIM_CoolingDevice", "no");
    EXPECT_EQ(notices_.failures(), 2U);
    EXPECT_THAT(said(), Not(HasSubstr("only references")));
}

TEST_F(ClientListenerTest, AHypervisorMayBeLookedForInVain) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    failDetection(Kind::kTimeout);
    failDetection(Kind::kTimeout);
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): looking for a hypervisor: no answer in time; it is taken for "
              "none\n");
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, AServerThatKnowsNoHypervisorIsNoFailure) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    failDetection(Kind::kCimError);
    listener_.beginQuestion(Wanted::kContent, "");
    listener_.beginConnect();
    failDetection(Kind::kCimError);
    EXPECT_EQ(said(), "");
    EXPECT_FALSE(hasFailed());
}

TEST_F(ClientListenerTest, AServerThatKnowsNoHypervisorHasAnsweredTheSecondAttempt) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    failDetection(Kind::kTimeout);
    failDetection(Kind::kCimError);
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): looking for a hypervisor: no answer in time; the second "
              "attempt was answered\n");
}

TEST_F(ClientListenerTest, AHypervisorsClassThatWasAskedForIsAnyClass) {
    listener_.beginQuestion(Wanted::kContent, "VMware_HypervisorSoftwareIdentity");
    failDetection(Kind::kCimError);
    EXPECT_THAT(said(), HasSubstr("instances of VMware_HypervisorSoftwareIdentity: CIM error"));
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, OtherInstancesAreNoLookForAHypervisor) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    failInstances(0, Kind::kCimError);
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, CredentialsThatAreRefusedAreNotShownAgain) {
    EXPECT_FALSE(failInstances(1, Kind::kRefusedCredentials));
    EXPECT_EQ(said(), "cimhttp: node 2 (10.0.0.2:5988): refuses user 'admin' with the password given\n");
    EXPECT_TRUE(hasFailed());
    EXPECT_TRUE(listener_.isRefusedBy(1));
    EXPECT_FALSE(listener_.isRefusedBy(0));
}

TEST_F(ClientListenerTest, ANodeThatWasGivenNoUserAsksForOne) {
    failInstances(0, Kind::kRefusedCredentials);
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): asks for a user and a password: --user NAME or --node "
              "USER@HOST\n");
}

TEST_F(ClientListenerTest, ARefusalOfTheSecondAttemptIsAllThatIsSaid) {
    failInstances(1, Kind::kBroken);
    failInstances(1, Kind::kRefusedCredentials);
    EXPECT_EQ(said(), "cimhttp: node 2 (10.0.0.2:5988): refuses user 'admin' with the password given\n");
    failInstances(0, Kind::kTimeout);
    EXPECT_EQ(notices_.failures(), 1U) << "another request's first";
}

TEST_F(ClientListenerTest, AConnectionThatComesBackUnencryptedIsTold) {
    failInstances(0, Kind::kBroken);
    failHttps(0);
    listener_.Connected(0, false);
    recover(0, "EnumerateInstances", "CIM_Fan");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5988): reconnected over HTTP, now without encryption: no one at "
              "5989\n"
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: Connection closed; the second attempt "
              "was answered\n");
    EXPECT_FALSE(hasFailed());
    EXPECT_EQ(machine_.where(0), "node 1 (10.0.0.1:5988)");
}

TEST_F(ClientListenerTest, AConnectionThatWasNeverEncryptedComesBackQuietly) {
    failHttps(1);
    listener_.Connected(1, false);
    EXPECT_EQ(said(), "");
}

TEST_F(ClientListenerTest, AConnectionThatComesBackEncryptedIsKnownToBe) {
    listener_.Connected(0, true);
    listener_.Connected(1, true);
    EXPECT_EQ(said(), "");
    EXPECT_EQ(machine_.where(1), "node 2 (10.0.0.2:5989)");
    failHttps(1);
    listener_.Connected(1, false);
    EXPECT_THAT(said(), HasSubstr("node 2 (10.0.0.2:5988): reconnected over HTTP, now without encryption"));
}

TEST_F(ClientListenerTest, ANodeThatIsLostIsAFailureWhateverItWasAsked) {
    listener_.beginQuestion(Wanted::kDefinition, "CIM_Fan");
    failDetection(Kind::kBroken);
    failHttps(0);
    failHttp(0);
    EXPECT_EQ(said(), "") << "the second attempt, which cannot be made, tells it";
    failDetection(Kind::kBroken);
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): looking for a hypervisor: Connection closed; cannot "
              "reconnect: no one at 5989; no one at 5988\n");
    EXPECT_TRUE(hasFailed());
}

TEST_F(ClientListenerTest, SaysInWordsThatANameIsNotKnownAnyMore) {
    fail(0, Kind::kCannotConnect, "HTTPSConnect", "", "Invalid locator: bmc1:5989");
    fail(0, Kind::kCannotConnect, "HTTPConnect", "", "Invalid locator: bmc1:5988");
    EXPECT_EQ(said(), "cimhttp: node 1 (10.0.0.1:5989): cannot reconnect: its name cannot be resolved\n");
}

TEST_F(ClientListenerTest, ForbidsHttpWhereItWouldShowAPassword) {
    Machine machine({{"10.0.0.1", "admin", "x", false, false}, {"10.0.0.2", "", ""}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    listener.beginConnect();
    EXPECT_FALSE(listener.AttemptFailed({0, "HTTPSConnect", "", Kind::kCannotConnect, 0, "no TLS."}));
    EXPECT_TRUE(listener.AttemptFailed({1, "HTTPSConnect", "", Kind::kCannotConnect, 0, "no TLS."}));
    listener.Connected(1, false);
    listener.endConnect();
    EXPECT_THAT(said(), HasSubstr("node 1 (10.0.0.1): cannot connect: no TLS\n"));
}

TEST_F(ClientListenerTest, TellsThatAConnectionWasNotReplacedByOneThatWouldShowAPassword) {
    Machine machine({{"10.0.0.1", "admin", "x", false, false}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    listener.Connected(0, true);
    listener.beginQuestion(Wanted::kContent, "CIM_Fan");
    const ClientFailure broken{0, "EnumerateInstances", "CIM_Fan", Kind::kBroken, 0, "Connection closed."};
    EXPECT_TRUE(listener.AttemptFailed(broken));
    EXPECT_FALSE(listener.AttemptFailed({0, "HTTPSConnect", "", Kind::kCannotConnect, 0, "gone."}));
    listener.AttemptFailed(broken);
    EXPECT_EQ(said(),
              "cimhttp: 10.0.0.1:5989: instances of CIM_Fan: Connection closed; cannot reconnect: gone; HTTP "
              "would show the password, --transport auto allows it\n");
    EXPECT_TRUE(listener.nodeFailures().hasFailed(0));
}

TEST_F(ClientListenerTest, CountsTheMachinesNodesWhereThePlugInWasNotGivenAll) {
    Machine machine({{"10.0.0.1", "", ""}, {"10.0.0.2", "", ""}, {"10.0.0.3", "", ""}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    listener.leaveOut(1, "cannot connect: connection refused");
    listener.Connected(1, true);
    listener.beginQuestion(Wanted::kContent, "CIM_Fan");
    listener.AttemptFailed({1, "EnumerateInstances", "CIM_Fan", Kind::kCimError, 1, "no"});
    EXPECT_EQ(said(),
              "cimhttp: node 2 (10.0.0.2): cannot connect: connection refused\n"
              "cimhttp: node 3 (10.0.0.3:5989): instances of CIM_Fan: CIM error: no\n");
    EXPECT_TRUE(listener.nodeFailures().hasFailed(2));
}

TEST_F(ClientListenerTest, TellsHowConnectingEndedForEveryNode) {
    Machine machine({{"10.0.0.1", "", ""}, {"10.0.0.2", "", ""}, {"10.0.0.3", "", ""}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    const auto fail = [&](std::size_t node, const std::string& operation, const std::string& text) {
        listener.AttemptFailed({node, operation, "", Kind::kCannotConnect, 0, text});
    };
    listener.beginConnect();
    listener.Connected(0, true);
    fail(1, "HTTPSConnect", "no TLS");
    listener.Connected(1, false);
    fail(2, "HTTPSConnect", "no TLS");
    fail(2, "HTTPConnect", "nobody");
    EXPECT_EQ(said(), "");
    listener.endConnect();
    EXPECT_EQ(said(),
              "cimhttp: node 2 (10.0.0.2:5988): connected over HTTP, without encryption: HTTPS is not "
              "offered\n"
              "cimhttp: node 3 (10.0.0.3): cannot connect: no TLS; nobody\n");
    EXPECT_EQ(notices_.failures(), 1U);
    EXPECT_EQ(machine.where(0), "node 1 (10.0.0.1:5989)");
    fail(0, "HTTPSConnect", "gone");
    fail(0, "HTTPConnect", "gone");
    EXPECT_THAT(said(), HasSubstr("node 1 (10.0.0.1:5989): cannot reconnect: gone\n"));
}

TEST_F(ClientListenerTest, OneProtocolHasNoOtherToFallBackOn) {
    Machine machine({{"10.0.0.1", "", ""}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    listener.beginConnect();
    listener.Connected(0, false);
    listener.endConnect();
    EXPECT_EQ(said(), "") << "HTTP alone was asked for";
    Machine other({{"10.0.0.1", "", ""}});
    ClientListener ofOther(other, notices_, progress_, received_, definitions_);
    ofOther.beginConnect();
    ofOther.AttemptFailed({0, "HTTPSConnect", "", Kind::kCannotConnect, 0, "no TLS"});
    ofOther.endConnect();
    EXPECT_EQ(said(), "cimhttp: 10.0.0.1: cannot connect: no TLS\n");
}

TEST_F(ClientListenerTest, AConnectionThatIsLostWhileConnectingCountsAsItComesBack) {
    Machine machine({{"10.0.0.1", "", ""}});
    ClientListener listener(machine, notices_, progress_, received_, definitions_);
    const auto fail = [&](Kind kind, const std::string& operation, const std::string& subject) {
        listener.AttemptFailed({0, operation, subject, kind, 0, "gone"});
    };
    listener.beginConnect();
    fail(Kind::kCannotConnect, "HTTPSConnect", "");
    listener.Connected(0, false);
    fail(Kind::kBroken, "EnumerateInstances", "VMware_HypervisorSoftwareIdentity");
    fail(Kind::kCannotConnect, "HTTPSConnect", "");
    fail(Kind::kCannotConnect, "HTTPConnect", "");
    EXPECT_FALSE(machine.link(0).reached);
    fail(Kind::kBroken, "EnumerateInstances", "VMware_HypervisorSoftwareIdentity");
    listener.Connected(0, true);
    listener.endConnect();
    EXPECT_TRUE(machine.link(0).reached);
    EXPECT_TRUE(machine.link(0).overHttps);
    EXPECT_THAT(said(), Not(HasSubstr("without encryption")));
    EXPECT_EQ(notices_.failures(), 0U);
}

TEST_F(ClientListenerTest, KeepsWhatTheNodesGave) {
    ReceivedInstances::Instances instances;
    instances.append(Pegasus::CIMInstance(Pegasus::CIMName("OMC_Fan")));
    listener_.Received({1, "EnumerateInstances", "CIM_Fan"}, instances);
    listener_.Defined({1, "GetClass", "CIM_Fan"},
                      Pegasus::CIMClass(Pegasus::CIMName("CIM_Fan"), Pegasus::CIMName("CIM_A")));
    listener_.Defined({0, "GetClass", "CIM_Fan"},
                      Pegasus::CIMClass(Pegasus::CIMName("CIM_Fan"), Pegasus::CIMName("CIM_B")));
    EXPECT_EQ(definitions_.differencesOf("CIM_Fan"),
              std::vector<std::string>{"node 2: superclass is CIM_A, not CIM_B"});
    EXPECT_EQ(received_.classesOf("CIM_Fan"), (ReceivedInstances::Counts{{"OMC_Fan", 1}}));
}

}  // namespace tool
