#include "tools/ConsoleLogger.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tool {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ConsoleLoggerTest : public ::testing::Test {
protected:
    explicit ConsoleLoggerTest(bool verbose = false) : logger_(machine_, notices_, progress_, verbose) {
        machine_.setOutcomes({{"", "", true, true}, {"x", "", true, false}});
        logger_.beginQuestion("CIM_Fan");
    }

    std::string said() const { return error_.str(); }

    std::ostringstream error_;
    Progress progress_{error_, false, 0};
    Notices notices_{error_, progress_};
    Machine machine_{{{"10.0.0.1", "", ""}, {"10.0.0.2", "", ""}}};
    ConsoleLogger logger_;
};

const std::string kInstancesTimeout =
    "ConnectionTimeoutException in PegClient::EnumerateInstances(): connection timed out";
const std::string kMethodTimeout =
    "ConnectionTimeoutException in PegClient::InvokeMethod(): connection timed out";
const std::string kNamesBroken = "Exception in PegClient::EnumerateClassNames(): Connection closed.";
const std::string kNoHttps = "CannotConnectException in PegClient::HTTPSConnect(): no one at 5989";
const std::string kNoHttp = "CannotConnectException in PegClient::HTTPConnect(): no one at 5988";

class VerboseLoggerTest : public ConsoleLoggerTest {
protected:
    VerboseLoggerTest() : ConsoleLoggerTest(true) {}
};

}  // namespace

TEST_F(ConsoleLoggerTest, SaysErrors) {
    logger_.Log(0, "CimHTTP: CIM name 'a b' is invalid");
    EXPECT_EQ(said(), "cimhttp: CimHTTP: CIM name 'a b' is invalid\n");
    EXPECT_TRUE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, SaysWhichNodeFailedAndWhatItWasAsked) {
    logger_.Log(3, "CIMException in PegClient::EnumerateClassNames(): no such class");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): class names below CIM_Fan: CIM error: no such class\n");
}

TEST_F(ConsoleLoggerTest, FollowsAnEnumerationToTheNextNode) {
    logger_.Log(3, "DEBUG: TCimHTTPClass:EI Total Clients 2\n");
    logger_.Log(
        3,
        "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 0 get instance of CIM_Fan\nCIM_Fan instance size "
        "1\n");
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, kInstancesTimeout);
    EXPECT_EQ(said(), "cimhttp: node 2 (10.0.0.2:5988): instances of CIM_Fan: no answer in time\n");
}

TEST_F(ConsoleLoggerTest, SaysARepeatedFailureOnce) {
    logger_.Log(3, "Exception in PegClient::GetClass(): Connection closed by CIM Server.");
    logger_.Log(3, "Exception in PegClient::GetClass(): Connection closed by CIM Server.");
    EXPECT_EQ(
        said(),
        "cimhttp: node 1 (10.0.0.1:5989): definition of class CIM_Fan: Connection closed by CIM Server.\n");
    EXPECT_EQ(logger_.failures(), 2U);
}

TEST_F(ConsoleLoggerTest, AFailureThatNoOtherFollowsWasOvercome) {
    logger_.Log(3, kInstancesTimeout);
    EXPECT_EQ(said(), "");
    logger_.endQuestion();
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: no answer in time; the second attempt "
              "was answered\n");
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AFailureIsOvercomeWhenThePlugInGoesOn) {
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, "Exiting TCimHTTPNamespace::EnumerateInstanceNames");
    EXPECT_THAT(said(), HasSubstr("the second attempt was answered"));
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, "ConnectionTimeoutException in PegClient::GetClass(): connection timed out");
    logger_.endQuestion();
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AFailureIsOvercomeWhenTheNextQuestionIsAsked) {
    logger_.Log(3, kInstancesTimeout);
    logger_.beginQuestion("CIM_Fan");
    logger_.Log(3, kInstancesTimeout);
    logger_.endQuestion();
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, ARequestFailsWithItsSecondAttempt) {
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, "CIMException in PegClient::EnumerateInstances(): no such class");
    logger_.endQuestion();
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: no answer in time\n"
              "cimhttp: node 1 (10.0.0.1:5989): instances of CIM_Fan: CIM error: no such class\n");
    EXPECT_TRUE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AThirdFailureIsAnotherRequestsFirst) {
    for (int i = 0; i < 3; ++i) {
        logger_.Log(3, kInstancesTimeout);
    }
    EXPECT_EQ(logger_.failures(), 2U);
    logger_.endQuestion();
    EXPECT_EQ(logger_.failures(), 2U);
}

TEST_F(ConsoleLoggerTest, AnOvercomeFailureOfAMethodWarnsThatItMayHaveRunTwice) {
    logger_.beginQuestion("Reset");
    logger_.Log(3, kMethodTimeout);
    logger_.endQuestion();
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): calling Reset: no answer in time; the second attempt was "
              "answered, and the method may have run twice\n");
}

TEST_F(ConsoleLoggerTest, AClassThatOnlyReferencesNameMayBeMissing) {
    logger_.Log(3, "DEBUG: TCimHTTPClass:EI Total Clients 1\n");
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Room");
    logger_.Log(3, "CIMException in PegClient::GetClass(): no such class");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): definition of class CIM_Room: CIM error: no such class; only "
              "references name it\n");
    EXPECT_FALSE(logger_.hasFailed());
    logger_.beginQuestion("CIM_Room");
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Room");
    logger_.Log(3, "CIMException in PegClient::GetClass(): no such class");
    EXPECT_TRUE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AHypervisorMayBeLookedForInVain) {
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, kInstancesTimeout);
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): looking for a hypervisor: no answer in time; it is taken for "
              "none\n");
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AConnectionThatComesBackUnencryptedIsTold) {
    logger_.Log(3, kNamesBroken);
    logger_.Log(3, kNoHttps);
    logger_.endQuestion();
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5988): reconnected over HTTP, now without encryption: no one at "
              "5989\n"
              "cimhttp: node 1 (10.0.0.1:5989): class names below CIM_Fan: Connection closed.; the second "
              "attempt was answered\n");
    EXPECT_FALSE(logger_.hasFailed());
    EXPECT_EQ(machine_.where(0), "node 1 (10.0.0.1:5988)");
}

TEST_F(ConsoleLoggerTest, AConnectionThatWasNeverEncryptedComesBackQuietly) {
    logger_.Log(3, "DEBUG: TCimHTTPClass:EI Total Clients 2\n");
    logger_.Log(3,
                "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 0 get instance of A\nA instance size 1");
    logger_.Log(3, "Exception in PegClient::EnumerateInstances(): Connection closed.");
    logger_.Log(3, kNoHttps);
    logger_.endQuestion();
    EXPECT_THAT(said(), Not(HasSubstr("without encryption")));
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AConnectionThatComesBackEncryptedIsKnownToBe) {
    machine_.setOverHttps(0, false);
    logger_.Log(3, kNamesBroken);
    logger_.endQuestion();
    EXPECT_TRUE(machine_.isOverHttps(0));
    logger_.Log(3, kNamesBroken);
    logger_.Log(3, kNoHttps);
    logger_.endQuestion();
    EXPECT_THAT(said(), HasSubstr("now without encryption"));
}

TEST_F(ConsoleLoggerTest, TheReconnectionAfterASecondFailureIsToldToo) {
    logger_.Log(3, kNamesBroken);
    logger_.Log(3, kNamesBroken);
    logger_.Log(3, kNoHttps);
    logger_.endQuestion();
    EXPECT_TRUE(logger_.hasFailed());
    EXPECT_THAT(said(), HasSubstr("node 1 (10.0.0.1:5988): reconnected over HTTP, now without encryption"));
}

TEST_F(ConsoleLoggerTest, AReconnectingNodeIsKnownByItsAddressWhenNothingElseTells) {
    machine_.setOverHttps(1, true);
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    logger_.Log(3, "TCimHTTPNamespace::GetClass  : return <root>");
    logger_.Log(3, "Exception in PegClient::GetClass(): Connection closed.");
    logger_.Log(3, "CannotConnectException in PegClient::HTTPSConnect(): Cannot connect to 10.0.0.2:5989.");
    logger_.endQuestion();
    EXPECT_THAT(said(), HasSubstr("cimhttp: node 2 (10.0.0.2:5988): reconnected over HTTP"));
}

TEST_F(ConsoleLoggerTest, ANodeThatIsLostIsAFailureWhateverItWasAsked) {
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    logger_.Log(3, "Exception in PegClient::EnumerateInstances(): Connection closed.");
    logger_.Log(3, kNoHttps);
    logger_.Log(3, kNoHttp);
    logger_.Log(3, "Exception in PegClient::EnumerateInstances(): not connected");
    EXPECT_THAT(said(),
                HasSubstr("node 1 (10.0.0.1:5989): cannot reconnect: no one at 5989 no one at 5988\n"));
    EXPECT_TRUE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, KeepsTraceLinesToItself) {
    logger_.Log(3, "Entering TCimHTTPNamespace::EnumerateClassNames");
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    EXPECT_EQ(said(), "");
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(VerboseLoggerTest, ShowsTraceLinesAndTheFailureAsLoggedToo) {
    logger_.Log(3, "Entering X");
    logger_.Log(3, "DEBUG: two\nlines\n");
    logger_.Log(3, "CIMException in PegClient::GetClass(): no");
    EXPECT_EQ(said(),
              "Entering X\nDEBUG: two\\nlines\nCIMException in PegClient::GetClass(): no\n"
              "cimhttp: node 1 (10.0.0.1:5989): definition of class CIM_Fan: CIM error: no\n");
}

TEST_F(ConsoleLoggerTest, AServerThatKnowsNoHypervisorIsNoFailure) {
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    logger_.Log(3, "CIMException in PegClient::EnumerateInstances(): VMware_HypervisorSoftwareIdentity");
    EXPECT_EQ(said(), "");
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AServerThatKnowsNoHypervisorHasAnsweredTheSecondAttempt) {
    logger_.Log(3, "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan");
    logger_.Log(3, kInstancesTimeout);
    logger_.Log(3, "CIMException in PegClient::EnumerateInstances(): VMware_HypervisorSoftwareIdentity");
    EXPECT_EQ(said(),
              "cimhttp: node 1 (10.0.0.1:5989): looking for a hypervisor: no answer in time; the second "
              "attempt was answered\n");
}

TEST_F(ConsoleLoggerTest, ARefusalIsNoAnswerToTheSecondAttempt) {
    logger_.Log(3, kNamesBroken);
    EXPECT_THROW(
        logger_.Log(3, "Exception in PegClient::EnumerateClassNames(): HTTP Error (401 Unauthorized)."),
        CredentialsRefused);
    logger_.endQuestion();
    EXPECT_EQ(said(), "");
}

TEST_F(ConsoleLoggerTest, ThrowsWhenCredentialsAreRefused) {
    EXPECT_THROW(logger_.Log(3, "Exception in PegClient::GetClass(): HTTP Error (401 Unauthorized)."),
                 CredentialsRefused);
    ASSERT_TRUE(logger_.refusal());
    EXPECT_EQ(logger_.refusal()->node, 0U);
    EXPECT_EQ(said(), "");
}

TEST_F(ConsoleLoggerTest, CollectsConnectionFailuresForTheReport) {
    ConnectReport& report = logger_.beginConnect();
    logger_.Log(3, "Entering TCimHTTPNamespace::connect - Connect to cimom via http or https");
    logger_.Log(3, "Entering TCimHTTPNamespace::connect - Connect to cimom via http or https");
    logger_.Log(3, "CannotConnectException in PegClient::HTTPSConnect(): nobody");
    EXPECT_EQ(said(), "");
    EXPECT_EQ(report.outcomes()[1].httpsFailure, "nobody");
    EXPECT_FALSE(logger_.hasFailed());
}

TEST_F(ConsoleLoggerTest, AConnectionThatIsLostWhileConnectingCountsAsItComesBack) {
    ConnectReport& report = logger_.beginConnect();
    logger_.Log(3, "Entering TCimHTTPNamespace::connect - Connect to cimom via http or https");
    logger_.Log(3, kNoHttps);
    logger_.Log(3, "Exception in PegClient::EnumerateInstances(): Connection closed.");
    logger_.Log(3, kNoHttps);
    logger_.Log(3, kNoHttp);
    logger_.Log(3, "Exception in PegClient::EnumerateInstances(): not connected");
    report.finish(Transport::kAuto);
    EXPECT_TRUE(report.outcomes()[0].overHttps);
}

TEST_F(ConsoleLoggerTest, CollectsUndeclaredProperties) {
    logger_.Log(3, "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: Speed");
    EXPECT_EQ(logger_.undeclaredProperties().count("speed"), 1U);
    EXPECT_EQ(said(), "");
}

TEST_F(ConsoleLoggerTest, MakesServerTextSafe) {
    logger_.Log(3, "CIMException in PegClient::EnumerateClassNames(): \x1b[2J");
    EXPECT_EQ(said().find('\x1b'), std::string::npos);
}

}  // namespace tool
