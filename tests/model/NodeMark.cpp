#include "model/RemoteInstanceReader.h"

#include <gtest/gtest.h>

#include <string>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {
namespace {

std::string Marked(const NodeMark& mark, TCIMValue value) {
    mark.MarkInstanceId(value);
    return value.ToString(10);
}

TEST(NodeMark, OutsideAControllersNamespaceTheNumberIsTheNodeKey) {
    EXPECT_EQ(NodeMark("root/cimv2", "3", false).NodeNumber(), "3");
    EXPECT_EQ(NodeMark("root/VQM1", "3", true).NodeNumber(), "3");
    EXPECT_EQ(NodeMark("", "12", true).NodeNumber(), "12");
}

TEST(NodeMark, AControllersDigitIsRaisedByOneUpToThreeAndOnlyOnce) {
    const auto numberIn = [](const std::string& name) { return NodeMark(name, "7", false).NodeNumber(); };
    EXPECT_EQ(numberIn("root/vqm0"), "1");
    EXPECT_EQ(numberIn("root/vqm1"), "2");
    EXPECT_EQ(numberIn("root/vqm2"), "3");
    EXPECT_EQ(numberIn("root/vqm3"), "4");
    EXPECT_EQ(numberIn("root/vqm4"), "4");
    EXPECT_EQ(numberIn("root/vqm9"), "9");
    EXPECT_EQ(numberIn("root/vqmx"), "x");
    EXPECT_EQ(numberIn("root/vqm12"), "2");
    EXPECT_EQ(numberIn("root/vqm1/vqm3"), "2");
    EXPECT_EQ(numberIn("root/vqm"), "");
}

TEST(NodeMark, OfSeveralNodesEveryInstanceIDGetsTheNodeKey) {
    const NodeMark mark("root/cimv2", "2", true);
    EXPECT_EQ(Marked(mark, TCIMValue("fan:1")), "Node2:fan:1");
    EXPECT_EQ(Marked(mark, TCIMValue("")), "Node2:");
    EXPECT_EQ(Marked(mark, TCIMValue()), "Node2:");
    EXPECT_EQ(Marked(NodeMark("root/vqm2", "1", true), TCIMValue("fan")), "Node1:fan");
}

TEST(NodeMark, ASingleControllersNamespaceGivesItsNumberToEveryInstanceID) {
    const NodeMark mark("root/vqm2", "1", false);
    EXPECT_EQ(Marked(mark, TCIMValue("fan:1")), "Node3:fan:1");
    EXPECT_EQ(Marked(mark, TCIMValue("")), "Node3:");
}

TEST(NodeMark, OnASingleNodeOnlyAnEmptyInstanceIDIsMarked) {
    const NodeMark mark("root/cimv2", "1", false);
    EXPECT_EQ(Marked(mark, TCIMValue("fan:1")), "fan:1");
    EXPECT_EQ(Marked(mark, TCIMValue("")), "Node1:");
    EXPECT_EQ(Marked(mark, TCIMValue()), "Node1:");
}

TEST(NodeMark, AMarkedValueIsAString) {
    TCIMValue number(5U);
    NodeMark("root/cimv2", "1", true).MarkInstanceId(number);
    EXPECT_EQ(number.GetType(), TCIMValue::TCIMType::eString);
    EXPECT_EQ(number.ToString(10), "Node1:5");
}

}  // namespace
}  // namespace NQELVSK20
