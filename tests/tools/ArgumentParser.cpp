#include "tools/values/ArgumentParser.h"

#include <gmock/gmock.h>

#include "tests/tools/support/Sensors.h"
#include "tools/common/UsageError.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ArgumentParserTest : public ::testing::Test {
protected:
    TCIMValue parse(const std::string& argument) const {
        const TContext values = parser_.parse({argument});
        return values.begin()->second;
    }

    std::string refusal(const std::vector<std::string>& arguments) const {
        try {
            parser_.parse(arguments);
        } catch (const UsageError& error) {
            return error.what();
        }
        return "accepted";
    }

    Sensors sensors_;
    ArgumentParser parser_{*sensors_.sensor()->GetMethodDecl("Calibrate", {}), [](const std::string& path) {
                               TCIMReference reference(nullptr, {});
                               reference.SetPath(path);
                               return reference;
                           }};
};

}  // namespace

TEST_F(ArgumentParserTest, ConvertsToTheDeclaredType) {
    EXPECT_EQ(parse("Flag=TRUE").GetType(), TType::eBoolean);
    EXPECT_EQ(parse("U8=255").ToString(10), "255");
    EXPECT_EQ(parse("U8=0xff").ToString(10), "255");
    EXPECT_EQ(parse("S8=-128").ToString(10), "-128");
    EXPECT_EQ(parse("U64=18446744073709551615").ToString(10), "18446744073709551615");
    EXPECT_EQ(parse("S64=-9223372036854775808").ToString(10), "-9223372036854775808");
    EXPECT_EQ(parse("R32=0.5").GetType(), TType::eReal32);
    EXPECT_EQ(parse("R64=+1e300").ToString(10), "1e+300");
    EXPECT_EQ(parse("Letter=€").ToString(10), "8364");
    EXPECT_EQ(parse("Text=a=b, \"c\"").ToString(10), "a=b, \"c\"");
    EXPECT_EQ(parse("Text=").ToString(10), "");
    EXPECT_EQ(parse("When=20240901090000.000000+060").GetType(), TType::eDateTime);
    EXPECT_EQ(parse("Who=TST_Sensor.ID=\"1\"").ToString(10), "TST_Sensor.ID=\"1\"");
    EXPECT_TRUE(parse("Who=TST_Sensor.ID=\"1\"").IsReference());
}

TEST_F(ArgumentParserTest, RefusesValuesOutOfRangeAndSaysTheRange) {
    EXPECT_THAT(refusal({"U8=256"}), HasSubstr("from 0 to 255"));
    EXPECT_THAT(refusal({"U8=-1"}), HasSubstr("U8 takes uint8, not '-1'"));
    EXPECT_THAT(refusal({"S8=128"}), HasSubstr("from -128 to 127"));
    EXPECT_THAT(refusal({"S8=-129"}), HasSubstr("from -128 to 127"));
    EXPECT_THAT(refusal({"U64=18446744073709551616"}), HasSubstr("to 18446744073709551615"));
    EXPECT_THAT(refusal({"S64=9223372036854775808"}), HasSubstr("to 9223372036854775807"));
    EXPECT_THAT(refusal({"S64=-9223372036854775809"}), HasSubstr("to 9223372036854775807"));
    EXPECT_THAT(refusal({"R32=1e39"}), HasSubstr("out of range"));
    EXPECT_THAT(refusal({"Letter=😀"}), HasSubstr("one character"));
}

TEST_F(ArgumentParserTest, RefusesTextThatIsNoneOfTheType) {
    for (const char* argument : {"Flag=yes", "Flag=1", "U8=", "U8=1x", "U8=1.5", "R64=", "R64=1,5",
                                 "Letter=", "Letter=ab", "When=today", "Who=", "Who=a b", "Object=x",
                                 "Whose=[A.ID=1]", "Numbers=5", "Numbers=[1,x]", "Numbers=[1,65536]"}) {
        EXPECT_NE(refusal({argument}), "accepted") << argument;
    }
}

TEST_F(ArgumentParserTest, ReadsArraysOfTheDeclaredType) {
    const TCIMValue numbers = parse("Numbers=[1, 2,65535]");
    EXPECT_TRUE(numbers.IsArray());
    EXPECT_EQ(numbers.ToString(10), "1,2,65535");
    EXPECT_EQ(elementsOf(numbers)[0].GetType(), TType::eUint16);
    EXPECT_TRUE(parse("Numbers=[]").IsArray());
    EXPECT_TRUE(elementsOf(parse("Texts=[]")).empty());
}

TEST_F(ArgumentParserTest, FindsParametersWithoutRegardToCase) {
    const TContext values = parser_.parse({"u8=1", "TEXT=x"});
    EXPECT_EQ(values.count("U8"), 1U);
    EXPECT_EQ(values.count("Text"), 1U);
}

TEST_F(ArgumentParserTest, RefusesUnknownRepeatedAndNamelessArguments) {
    EXPECT_THAT(refusal({"Speed=1"}), HasSubstr("Calibrate has no parameter 'Speed'; it takes Flag"));
    EXPECT_THAT(refusal({"U8=1", "u8=2"}), HasSubstr("U8 is given twice"));
    EXPECT_THAT(refusal({"U8"}), HasSubstr("NAME=VALUE is expected"));
    EXPECT_THAT(refusal({"=1"}), HasSubstr("no parameter ''"));
}

TEST_F(ArgumentParserTest, TakesTheNameOfANumber) {
    const ValueMap meanings({"2", "0x10", "3..7"}, {"OK", "Hot", "5"});
    const auto number = [&](const std::string& text) {
        return parser_.value("U16", TType(TType::eUint16), text, &meanings).ToString(10);
    };
    EXPECT_EQ(number("ok"), "2");
    EXPECT_EQ(number("Hot"), "16");
    EXPECT_EQ(number("5"), "5");
    EXPECT_EQ(parser_.value("U16s", TType(TType::eUint16Array), "[OK, 7]", &meanings).ToString(10), "2,7");
    // What is no number is what it is.
    EXPECT_EQ(parser_.value("Text", TType(TType::eString), "OK", &meanings).ToString(10), "OK");
    EXPECT_THROW(parser_.value("Flag", TType(TType::eBoolean), "OK", &meanings), UsageError);
    try {
        number("Cold");
        FAIL();
    } catch (const UsageError& error) {
        EXPECT_THAT(error.what(), ::testing::EndsWith("from 0 to 65535, or one of OK, Hot, 5"));
    }
}

TEST(ParseList, SplitsAtCommasOutsideQuotes) {
    EXPECT_THAT(parseList("[a, b ,c d]"), ElementsAre("a", "b", "c d"));
    EXPECT_THAT(parseList(R"(["a,b","say \"x\" \\", ""])"), ElementsAre("a,b", R"(say "x" \)", ""));
    EXPECT_THAT(parseList("[]"), ElementsAre());
    EXPECT_THAT(parseList("[ ]"), ElementsAre());
    EXPECT_THAT(parseList("[a,]"), ElementsAre("a", ""));
}

TEST(ParseList, RefusesWhatIsNoList) {
    for (const char* text : {"", "[", "a", "[a", "a]", R"(["a)", R"(["a])", R"(["a"b])"}) {
        EXPECT_THROW(parseList(text), UsageError) << text;
    }
}

}  // namespace tool
