#include "tools/machine/ReceivedInstances.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>
#include <gmock/gmock.h>

namespace tool {

namespace {

using Pegasus::CIMName;
using Pegasus::String;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr const char* kAsked = "CIM_Fan";

/// Properties are text that is not null, unless their name begins with "No".
Pegasus::CIMInstance instanceOf(const char* className, const std::string& id,
                                const std::vector<std::string>& properties) {
    Pegasus::CIMInstance instance{CIMName(className)};
    for (const std::string& name : properties) {
        const bool isNull = name.rfind("No", 0) == 0;
        instance.addProperty(Pegasus::CIMProperty(
            CIMName(name.substr(isNull ? 2 : 0).c_str()),
            isNull ? Pegasus::CIMValue(Pegasus::CIMTYPE_STRING, false) : Pegasus::CIMValue(String("x"))));
    }
    Pegasus::Array<Pegasus::CIMKeyBinding> keys;
    if (!id.empty()) {
        keys.append(
            Pegasus::CIMKeyBinding(CIMName("Id"), String(id.c_str()), Pegasus::CIMKeyBinding::STRING));
        keys.append(Pegasus::CIMKeyBinding(CIMName("Maker"), String("acme"), Pegasus::CIMKeyBinding::STRING));
    }
    instance.setPath(Pegasus::CIMObjectPath(String(), Pegasus::CIMNamespaceName(), CIMName(className), keys));
    return instance;
}

class ReceivedInstancesTest : public ::testing::Test {
protected:
    void add(std::size_t node, const std::vector<Pegasus::CIMInstance>& instances,
             const char* asked = kAsked) {
        ReceivedInstances::Instances array;
        for (const Pegasus::CIMInstance& instance : instances) {
            array.append(instance);
        }
        received_.add(node, asked, array);
    }
    std::vector<std::string> nullsOf(std::size_t node, const std::string& keys) const {
        return received_.nullsOf(node, ObjectPath::parse(std::string("cim_fan") + keys));
    }

    ReceivedInstances received_;
};

}  // namespace

TEST_F(ReceivedInstancesTest, CountsByTheClassThatEachInstanceIsOf) {
    add(0, {instanceOf("CIM_Fan", "a", {}), instanceOf("OMC_Fan", "b", {}), instanceOf("omc_fan", "c", {})});
    add(1, {instanceOf("OMC_Fan", "b", {})});
    add(0, {instanceOf("CIM_Pump", "p", {})}, "CIM_Pump");
    EXPECT_THAT(received_.classesOf("cim_fan"), ElementsAre(Pair("CIM_Fan", 1U), Pair("OMC_Fan", 3U)));
    EXPECT_THAT(received_.classesOf("CIM_Thing"), IsEmpty());
    add(2, {});
    EXPECT_EQ(received_.nodesOf("CIM_FAN"), 2U) << "the third node has none";
    EXPECT_EQ(received_.nodesOf("CIM_Pump"), 1U);
}

TEST_F(ReceivedInstancesTest, ALaterAnswerOfANodeTakesThePlaceOfItsFirst) {
    add(0, {instanceOf("CIM_Fan", "a", {"NoName"}), instanceOf("CIM_Fan", "b", {"NoName"})});
    add(0, {instanceOf("CIM_Fan", "a", {"Name"})});
    EXPECT_THAT(received_.classesOf(kAsked), ElementsAre(Pair("CIM_Fan", 1U)));
    EXPECT_THAT(nullsOf(0, ".Id=\"a\",Maker=\"acme\""), IsEmpty());
}

TEST_F(ReceivedInstancesTest, TellsTheNullsOfOneInstanceFromThoseOfTheNext) {
    add(0, {instanceOf("CIM_Fan", "a", {"NoName", "Speed"}), instanceOf("CIM_Fan", "b", {"Name", "NoSpeed"}),
            instanceOf("CIM_Fan", "c", {"Name", "Speed"})});
    add(1, {instanceOf("CIM_Fan", "a", {"Name", "Speed"}), instanceOf("CIM_Fan", "b", {"NoName", "Speed"})});
    EXPECT_THAT(nullsOf(0, ".Id=\"a\",Maker=\"acme\""), ElementsAre("Name"));
    EXPECT_THAT(nullsOf(0, ".NodeID=\"1\",maker=\"acme\",ID=\"b\""), ElementsAre("Speed"))
        << "in any order, and without the mark of the plug-in's";
    EXPECT_THAT(nullsOf(0, ".Id=\"c\",Maker=\"acme\""), IsEmpty());
    EXPECT_THAT(nullsOf(1, ".Id=\"a\",Maker=\"acme\""), IsEmpty());
    EXPECT_THAT(nullsOf(1, ".Id=\"b\",Maker=\"acme\""), ElementsAre("Name"));
}

TEST_F(ReceivedInstancesTest, KnowsOfAnInstanceWithoutKeysWhatHoldsForAll) {
    add(0,
        {instanceOf("CIM_Fan", "", {"NoName", "NoSpeed"}), instanceOf("CIM_Fan", "", {"NoName", "Speed"})});
    EXPECT_THAT(nullsOf(0, ".NodeID=\"1\""), ElementsAre("Name"));
    EXPECT_THAT(nullsOf(0, ".Id=\"unknown\""), ElementsAre("Name"));
}

TEST_F(ReceivedInstancesTest, KnowsOfInstancesOfOnePathWhatHoldsForBoth) {
    add(0,
        {instanceOf("CIM_Fan", "a", {"NoName", "NoSpeed"}), instanceOf("OMC_Fan", "a", {"NoName", "Speed"}),
         instanceOf("CIM_Fan", "b", {"Name", "NoSpeed"})});
    EXPECT_THAT(nullsOf(0, ".Id=\"a\",Maker=\"acme\""), ElementsAre("Name"));
}

TEST_F(ReceivedInstancesTest, SaysAtOnceWhetherThereAreAnyNulls) {
    add(0, {instanceOf("CIM_Fan", "a", {"Name"})});
    EXPECT_FALSE(received_.hasNulls("CIM_FAN"));
    add(1, {instanceOf("CIM_Fan", "a", {"NoName"})});
    EXPECT_TRUE(received_.hasNulls("CIM_FAN"));
    EXPECT_FALSE(received_.hasNulls("CIM_Pump"));
    received_.clear();
    EXPECT_FALSE(received_.hasNulls("CIM_FAN"));
}

}  // namespace tool
