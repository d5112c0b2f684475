#include "tools/Conversation.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

const std::string kLookup = "TCimHTTPNamespace::GetClass from Pegasus for: CIM_Fan";
const std::string kAnswerOfFirst =
    "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 0 get instance of CIM_Fan\nCIM_Fan instance size 1\n";

}  // namespace

TEST(Conversation, ASingleNodeIsAlwaysTheOneAsked) {
    const Conversation conversation(1);
    EXPECT_EQ(conversation.nodeAskedBy("GetClass"), 0U);
}

TEST(Conversation, NamesAndFirstFetchesComeFromTheFirstNode) {
    Conversation conversation(3);
    conversation.begin("CIM_Fan");
    EXPECT_EQ(conversation.nodeAskedBy("EnumerateClassNames"), 0U);
    conversation.see(kLookup);
    EXPECT_EQ(conversation.nodeAskedBy("GetClass"), 0U);
}

TEST(Conversation, WhoIsAskedWhileAClassIsBuiltCannotBeTold) {
    Conversation conversation(3);
    conversation.begin("CIM_Fan");
    conversation.see(kLookup);
    conversation.see("TCimHTTPNamespace::GetClass  : return <root>");
    EXPECT_EQ(conversation.nodeAskedBy("GetClass"), std::nullopt);
}

TEST(Conversation, AnEnumerationGoesFromNodeToNode) {
    Conversation conversation(2);
    conversation.begin("CIM_Fan");
    conversation.see("DEBUG: TCimHTTPClass:EI Total Clients 2\n");
    EXPECT_EQ(conversation.nodeAskedBy("EnumerateInstances"), 0U);
    conversation.see(kAnswerOfFirst);
    EXPECT_EQ(conversation.nodeAskedBy("EnumerateInstances"), 1U);
    conversation.see(kLookup);  // of a class that a reference points at
    conversation.see("TCimHTTPNamespace::GetClass CIM_Fan Found in TCimHTTPNamespace");
    EXPECT_EQ(conversation.nodeAskedBy("EnumerateInstances"), 1U);
}

TEST(Conversation, TheSubjectIsTheClassBeingFetched) {
    Conversation conversation(1);
    conversation.begin("CIM_Fan");
    EXPECT_EQ(conversation.subjectOf("EnumerateInstances"), "CIM_Fan");
    conversation.see("TCimHTTPNamespace::GetClass from Pegasus for: CIM_Device");
    EXPECT_EQ(conversation.subjectOf("GetClass"), "CIM_Device");
}

TEST(Conversation, TheHypervisorIsLookedForWhileConnectingOrFetching) {
    Conversation conversation(2);
    EXPECT_TRUE(conversation.isLookingForHypervisor());
    conversation.begin("CIM_Fan");
    EXPECT_FALSE(conversation.isLookingForHypervisor());
    conversation.see(kLookup);
    EXPECT_TRUE(conversation.isLookingForHypervisor());
    conversation.see("DEBUG: TCimHTTPClass:EI Total Clients 2\n");
    EXPECT_FALSE(conversation.isLookingForHypervisor());
}

}  // namespace tool
