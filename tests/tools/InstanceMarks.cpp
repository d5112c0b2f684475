#include "tools/machine/InstanceMarks.h"

#include <gmock/gmock.h>

#include <numeric>

#include "tests/host/Schema.h"

namespace tool {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A class TST_Log with the keys InstanceID and Name, and marks for its instances.
class InstanceMarksTest : public ::testing::Test {
protected:
    InstanceMarksTest() {
        NQELVSK20::AddKey(log_, "InstanceID");
        NQELVSK20::AddKey(log_, "Name");
    }

    static InstanceMarks of(std::size_t nodes, const std::string& nameSpace = "root/cimv2") {
        std::vector<std::size_t> all(nodes);
        std::iota(all.begin(), all.end(), std::size_t{0});
        return {nameSpace, all};
    }

    std::vector<std::string> marked(const InstanceMarks& marks, const std::string& id) const {
        std::vector<std::string> texts;
        for (const ObjectPath& path : marks.marked(pathOf(id), schema())) {
            texts.push_back(path.keys.front().text);
        }
        return texts;
    }

    /// The InstanceID without its mark, and the mark's node: "NODE TEXT"; "none" when there is no mark.
    std::string unmarked(const InstanceMarks& marks, const std::string& id) const {
        const auto own = marks.unmarked(pathOf(id), schema());
        return own ? std::to_string(own->node) + ' ' + own->path.keys.front().text : "none";
    }

    static ObjectPath pathOf(const std::string& id) {
        return ObjectPath::parse("TST_Log.instanceid=\"" + id + "\",Name=\"Node1:\"");
    }

    ClassSchema schema() const { return ClassSchema({log_}); }

    boost::shared_ptr<NQELVSK20::TInmemUnion> union_ = NQELVSK20::MakeUnion();
    boost::shared_ptr<NQELVSK20::ICIMClass> log_ = NQELVSK20::MakeClass(*union_, "TST_Log");
};

}  // namespace

TEST_F(InstanceMarksTest, OfSeveralNodesEveryInstanceIdIsMarked) {
    EXPECT_THAT(marked(of(3), "sel:1"), ElementsAre("Node1:sel:1", "Node2:sel:1", "Node3:sel:1"));
    EXPECT_EQ(unmarked(of(3), "Node2:sel:1"), "1 sel:1");
    EXPECT_EQ(unmarked(of(3), "Node1:Node2:x"), "0 Node2:x");
}

TEST_F(InstanceMarksTest, OnASingleNodeOnlyAnEmptyOneIs) {
    EXPECT_THAT(marked(of(1), "sel:1"), IsEmpty());
    EXPECT_THAT(marked(of(1), ""), ElementsAre("Node1:"));
    EXPECT_EQ(unmarked(of(1), "Node1:sel:1"), "none");
    EXPECT_EQ(unmarked(of(1), "Node1:"), "0 ");
}

TEST_F(InstanceMarksTest, OfASingleControllerEveryOneIsWithTheControllersNumber) {
    EXPECT_THAT(marked(of(1, "root/vqm0"), "x"), ElementsAre("Node1:x"));
    EXPECT_THAT(marked(of(1, "root/vqm3"), "x"), ElementsAre("Node4:x"));
    EXPECT_THAT(marked(of(1, "root/vqm7"), "x"), ElementsAre("Node7:x"));
    EXPECT_THAT(marked(of(1, "root/vqm"), "x"), ElementsAre("Node:x"));
    EXPECT_EQ(unmarked(of(1, "root/vqm2"), "Node3:x"), "0 x");
    EXPECT_EQ(unmarked(of(1, "root/vqm2"), "Node1:x"), "none");
}

TEST_F(InstanceMarksTest, OfSeveralNodesTheNodesNumberCountsEvenInAControllersNamespace) {
    EXPECT_THAT(marked(of(2, "root/vqm2"), "x"), ElementsAre("Node1:x", "Node2:x"));
    EXPECT_EQ(unmarked(of(2, "root/vqm2"), "Node2:x"), "1 x");
}

TEST_F(InstanceMarksTest, AMarkOfNoNodeOfTheMachineIsNone) {
    EXPECT_EQ(unmarked(of(2), "Node3:x"), "none");
    EXPECT_EQ(unmarked(of(2), "sel:1"), "none");
}

TEST_F(InstanceMarksTest, NodesThatAreLeftKeepTheirNumbersWhenOthersAreNotAsked) {
    const InstanceMarks marks("root/cimv2", {0, 2});
    EXPECT_THAT(marked(marks, "x"), ElementsAre("Node1:x", "Node3:x"));
    EXPECT_EQ(unmarked(marks, "Node3:x"), "2 x");
    EXPECT_EQ(unmarked(marks, "Node2:x"), "none");
}

TEST_F(InstanceMarksTest, OtherKeysAreLeftAlone) {
    const auto own = of(2).unmarked(pathOf("Node1:x"), schema());
    ASSERT_TRUE(own);
    EXPECT_EQ(own->path.keys.back().text, "Node1:");
    EXPECT_FALSE(of(2).unmarked(ObjectPath::parse("TST_Log.Name=\"Node1:x\""), schema()));
}

}  // namespace tool
