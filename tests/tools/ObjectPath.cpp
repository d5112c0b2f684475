#include "tools/values/ObjectPath.h"

#include <gtest/gtest.h>

#include "tests/tools/support/Sensors.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

std::string spelled(const std::string& text) {
    const Sensors sensors;
    return instancePath(ObjectPath::parse(text), sensors.schema());
}

}  // namespace

TEST(ObjectPath, TakesAClassAlone) {
    for (const char* text :
         {"TST_Sensor", "root/cimv2:TST_Sensor", "//10.0.0.1:5989/root/cimv2:TST_Sensor"}) {
        const ObjectPath path = ObjectPath::parse(text);
        EXPECT_EQ(path.className, "TST_Sensor") << text;
        EXPECT_TRUE(path.keys.empty()) << text;
    }
}

TEST(ObjectPath, ReadsQuotedAndBareKeys) {
    const ObjectPath path =
        ObjectPath::parse(R"(//host/root/cimv2:TST_Sensor.ID="a,b=\"c\" \\ :.",Number=3,On=TRUE)");
    ASSERT_EQ(path.keys.size(), 3U);
    EXPECT_EQ(path.className, "TST_Sensor");
    EXPECT_EQ(path.keys[0].text, R"(a,b="c" \ :.)");
    EXPECT_EQ(path.keys[1].name, "Number");
    EXPECT_EQ(path.keys[1].text, "3");
    EXPECT_EQ(path.keys[2].text, "TRUE");
}

TEST(ObjectPath, ReadsWhatIsPrintedForUnsafeCharacters) {
    const std::string hostile = "a\n\r\t\x1b\u202e\"\\n.";
    std::string quoted;
    for (const char letter : hostile) {
        quoted += letter == '"' || letter == '\\' ? "\\" : "";
        quoted += letter;
    }
    const std::string printed = safeText("A.ID=\"" + quoted + "\"");
    EXPECT_EQ(ObjectPath::parse(printed).keys.front().text, hostile) << printed;
    EXPECT_EQ(ObjectPath::parse(R"(A.ID="\x4\u12g4\z")").keys.front().text, "x4u12g4z") << "no such number";
}

TEST(ObjectPath, IsTheSameWhateverTheOrderOfItsKeys) {
    const ObjectPath path = ObjectPath::parse("A.X=1,Y=2");
    EXPECT_TRUE(path.isSame(ObjectPath::parse("a.y=\"2\",x=1")));
    for (const char* other : {"B.X=1,Y=2", "A.X=1", "A.X=1,Y=3", "A.X=1,Z=2", "A.X=1,Y=2,Z=3"}) {
        EXPECT_FALSE(path.isSame(ObjectPath::parse(other))) << other;
    }
}

TEST(ObjectPath, RefusesAValueThatIsNoneOfTheKeysType) {
    EXPECT_THROW(spelled("TST_Sensor.ID=1,Number=abc"), UsageError);
    EXPECT_THROW(spelled("TST_Sensor.ID=1,Number=256"), UsageError);
    EXPECT_THROW(spelled("TST_Sensor.ID=1,Number="), UsageError);
    EXPECT_EQ(spelled("TST_Sensor.ID=abc,Number=255"), R"(TST_Sensor.ID="abc",Number=255)");
}

TEST(ObjectPath, RefusesWhatIsNone) {
    for (const char* text : {"", ".ID=1", "A-B", "A.", "A.ID", "A.=1", R"(A.ID="x)", R"(A.ID="x"y)",
                             "A.ID=1,", "//host", "root/cimv2"}) {
        EXPECT_THROW(ObjectPath::parse(text), UsageError) << text;
    }
}

TEST(ObjectPath, IsSpelledAsThePluginSpellsIt) {
    EXPECT_EQ(spelled(R"(tst_sensor.NUMBER=3,id="a")"), R"(TST_Sensor.ID="a",Number=3)");
}

TEST(ObjectPath, GetsTheQuotesBackThatAShellTook) {
    EXPECT_EQ(spelled("TST_Sensor.ID=T1,Number=\"3\""), R"(TST_Sensor.ID="T1",Number=3)");
    EXPECT_EQ(spelled(R"(TST_Sensor.ID="say \"x\"",Number=3)"), R"(TST_Sensor.ID="say \"x\"",Number=3)");
}

TEST(ObjectPath, NeedsExactlyTheKeysOfTheClass) {
    EXPECT_THROW(spelled("TST_Sensor"), UsageError);
    EXPECT_THROW(spelled("TST_Sensor.ID=1"), UsageError);
    EXPECT_THROW(spelled("TST_Sensor.ID=1,Number=2,State=2"), UsageError);
    EXPECT_THROW(spelled("TST_Sensor.ID=1,Number=2,Other=2"), UsageError);
}

}  // namespace tool
