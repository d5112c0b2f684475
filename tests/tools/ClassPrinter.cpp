#include "tools/print/ClassPrinter.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/tools/support/OutputText.h"
#include "tests/tools/support/Sensors.h"
#include "tools/print/ClassJson.h"

namespace tool {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string printed(const Sensors& sensors, bool all) {
    OutputText text;
    ClassPrinter(text.output(), RemoteDefinitions(), all).print(sensors.schema());
    return text.text();
}

}  // namespace

TEST(ClassPrinter, BeginsWithTheChainFromTheTop) {
    EXPECT_EQ(printed(Sensors(), false).find("// TST_Element > TST_Sensor\n"), 0U);
}

TEST(ClassPrinter, WritesTheClassAsMofDoes) {
    const std::string text = printed(Sensors(), false);
    EXPECT_THAT(
        text,
        HasSubstr("[DESCRIPTION(\"Says \\\"how warm\\\" it is.\")]\nclass TST_Sensor : TST_Element\n{\n"));
    EXPECT_THAT(text, HasSubstr("    [KEY]\n    uint8 Number;\n"));
    EXPECT_THAT(text, HasSubstr("    sint32 Reading = -1;\n"));
    EXPECT_THAT(text, HasSubstr("    uint16 Samples[];\n"));
    EXPECT_THAT(text, HasSubstr("    uint32 Calibrate(\n        boolean Flag,\n        char16 Letter,\n      "
                                "  uint16 Numbers[],\n"));
    EXPECT_THAT(text, Not(HasSubstr("Caption")));
}

TEST(ClassPrinter, MarksInheritedMembersWithTheirOrigin) {
    const std::string text = printed(Sensors(), true);
    EXPECT_THAT(text, HasSubstr("    string Caption;  // from TST_Element\n"));
    EXPECT_THAT(text, HasSubstr("    uint8 Number;\n"));
}

TEST(ClassPrinter, PutsMeaningsBesideThePropertyInsteadOfTheirQualifiers) {
    const std::string text = printed(Sensors(), true);
    EXPECT_THAT(text, HasSubstr("    uint16 State;  // from TST_Element\n"
                                "        // 0 = Unknown\n"
                                "        // 2 = OK\n"));
    EXPECT_THAT(text, Not(HasSubstr("ValueMap")));
}

TEST(ClassPrinter, WrapsLongTextsBetweenWords) {
    const Sensors sensors;
    std::string description;
    for (int i = 0; i < 40; ++i) {
        description += "word" + std::to_string(i) + ' ';
    }
    const auto property = sensors.sensor()->AllocatePropertyDecl("Wordy", NQELVSK20::TCIMValue(""), {});
    NQELVSK20::Qualify(property, "DESCRIPTION", NQELVSK20::TCIMValue(description));
    property->Commit({});
    const std::string read = printed(sensors, false);
    std::istringstream lines(read);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 104U) << line;
    }
    EXPECT_THAT(read, HasSubstr("word39"));
    EXPECT_THAT(read, Not(HasSubstr("wo\"")));
}

TEST(ClassJson, HasTheAgreedShape) {
    const Sensors sensors;
    const nlohmann::json json = jsonClass(sensors.schema(), RemoteDefinitions(), false);
    EXPECT_EQ(json["name"], "TST_Sensor");
    EXPECT_EQ(json["superclass"], "TST_Element");
    EXPECT_EQ(json["qualifiers"], (nlohmann::json{{"DESCRIPTION", "Says \"how warm\" it is."}}));
    EXPECT_EQ(json["properties"][1],
              (nlohmann::json{
                  {"name", "Number"}, {"type", "uint8"}, {"array", false}, {"qualifiers", {{"KEY", true}}}}));
    EXPECT_EQ(json["properties"][3]["array"], true);
    EXPECT_EQ(json["properties"][3]["type"], "uint16");
    EXPECT_EQ(json["methods"][0]["name"], "Calibrate");
    EXPECT_EQ(json["methods"][0]["type"], "uint32");
    EXPECT_EQ(json["methods"][0]["parameters"][0],
              (nlohmann::json{{"name", "Flag"},
                              {"type", "boolean"},
                              {"array", false},
                              {"qualifiers", nlohmann::json::object()}}));
}

TEST(ClassJson, OfATopLevelClassHasNoSuperclass) {
    const Sensors sensors;
    const ClassSchema top({sensors.schema().chain()[1]});
    EXPECT_TRUE(jsonClass(top, RemoteDefinitions(), false)["superclass"].is_null());
}

TEST(ClassJson, MarksOriginsWhenInheritedMembersAreThere) {
    const Sensors sensors;
    const nlohmann::json json = jsonClass(sensors.schema(), RemoteDefinitions(), true);
    EXPECT_EQ(json["properties"].size(), 7U);
    EXPECT_EQ(json["properties"][6]["origin"], "TST_Element");
    EXPECT_EQ(json["methods"][0]["origin"], "TST_Sensor");
}

}  // namespace tool
