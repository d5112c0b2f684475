#include "tools/ConsoleLogger.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tool {

namespace {

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
    logger_.Log(3, "ConnectionTimeoutException in PegClient::EnumerateInstances(): connection timed out");
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
