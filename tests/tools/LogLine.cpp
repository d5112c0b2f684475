#include "tools/LogLine.h"

#include <gtest/gtest.h>

namespace tool {

TEST(LogLine, ReadsAFailureOfTheClient) {
    const auto failure = clientFailureIn("CIMException in PegClient::GetClass(): no class (): here");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, "CIMException");
    EXPECT_EQ(failure->operation, "GetClass");
    EXPECT_EQ(failure->message, "no class (): here");
    EXPECT_TRUE(failure->isCimError());
    EXPECT_FALSE(failure->isConnect());
    EXPECT_FALSE(failure->isRefusedLogin());
}

TEST(LogLine, KnowsWhatAFailureIs) {
    EXPECT_TRUE(clientFailureIn("Exception in PegClient::HTTPSConnect(): x")->isConnect());
    EXPECT_TRUE(clientFailureIn("ConnectionTimeoutException in PegClient::GetClass(): connection timed out")
                    ->isTimeout());
    EXPECT_TRUE(clientFailureIn("Exception in PegClient::GetClass(): HTTP Error (401 Unauthorized).")
                    ->isRefusedLogin());
    EXPECT_FALSE(
        clientFailureIn("Exception in PegClient::GetClass(): HTTP Error (500 401).")->isRefusedLogin());
    EXPECT_FALSE(clientFailureIn("Entering TCimHTTPNamespace::ConnectViaHttp"));
}

TEST(LogLine, ReadsANodesAnswer) {
    const auto answer = nodeAnswerIn(
        "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 2 get instance of CIM_Fan\nCIM_Fan instance size "
        "17\n");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->node, 2U);
    EXPECT_EQ(answer->className, "CIM_Fan");
    EXPECT_EQ(answer->instances, 17U);
}

TEST(LogLine, FollowsAClassLookup) {
    EXPECT_EQ(lookedUpClassIn("TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan"), "CIM_Fan");
    EXPECT_TRUE(endsLookup("TCimHTTPNamespace::GetClass CIM_Fan Found in TCimHTTPNamespace"));
    EXPECT_TRUE(endsLookup("TCimHTTPNamespace::GetClass CIM_Fan Now it is Found in TCimHTTPNamespace"));
    EXPECT_TRUE(endsLookup("TCimHTTPNamespace::GetClass  : return <root>"));
    EXPECT_FALSE(endsLookup("TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan"));
}

TEST(LogLine, TellsTraceFromTrouble) {
    for (const char* line :
         {"Entering TCimHTTPNamespace::ConnectViaHttp", "Exiting TCimHTTPNamespace::ConnectViaHttp",
          "DEBUG: TCimHTTPClass:EI Total Clients 3\n",
          "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan",
          "TCimHTTPNamespace::GetClass CIM_Fan Found in TCimHTTPNamespace",
          "TCimHTTPNamespace::GetClass skip QEL_RemoteNode"}) {
        EXPECT_TRUE(isTrace(line)) << line;
    }
    for (const char* line : {"The input auth info is not correct!",
                             "TCimHTTPClass::Initialize - Unable to retrieve qualifier: Key",
                             "TCimHTTPNamespace:Pegasus NSP Creation Fail: invalid CIM namespace name: x",
                             "TCimHTTPNamespace::GetClass X Catch an exception while trying to get this "
                             "class in union namespace"}) {
        EXPECT_FALSE(isTrace(line)) << line;
    }
}

TEST(LogLine, NamesThePropertyThatAClassDoesNotDeclare) {
    EXPECT_EQ(undeclaredPropertyIn("4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: Speed"),
              "Speed");
}

}  // namespace tool
