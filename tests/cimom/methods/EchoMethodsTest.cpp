#include "cimom/methods/EchoMethods.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SampleNameSpace.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::arrayXml;
using test::classNameXml;
using test::errorOf;
using test::named;
using test::valueXml;
using test::xmlOf;

struct Echo {
    const char* type;
    std::string value;
    std::vector<std::string> values;
};

void PrintTo(const Echo& echo, std::ostream* out) {
    *out << echo.type;
}

class EchoMethodsTest : public testing::TestWithParam<Echo> {
protected:
    static std::string methodOf(std::string type) {
        type[0] = static_cast<char>(type[0] - 'a' + 'A');
        return "Echo" + type;
    }

    test::SampleNameSpace space_;
};

TEST_P(EchoMethodsTest, GivesScalarAndArrayBack) {
    const Echo& echo = GetParam();
    const auto result = space_.invoke(methodOf(echo.type), test::echoServiceXml(),
                                      {{"Value", valueXml(echo.value)}, {"Values", arrayXml(echo.values)}});
    EXPECT_EQ(xmlOf(result.child("RETURNVALUE")), "<RETURNVALUE PARAMTYPE=\"" + std::string(echo.type) +
                                                      "\">" + valueXml(echo.value) + "</RETURNVALUE>");
    EXPECT_EQ(xmlOf(named(result, "ValueEcho")), "<PARAMVALUE NAME=\"ValueEcho\" PARAMTYPE=\"" +
                                                     std::string(echo.type) + "\">" + valueXml(echo.value) +
                                                     "</PARAMVALUE>");
    EXPECT_EQ(xmlOf(named(result, "ValuesEcho")), "<PARAMVALUE NAME=\"ValuesEcho\" PARAMTYPE=\"" +
                                                      std::string(echo.type) + "\">" + arrayXml(echo.values) +
                                                      "</PARAMVALUE>");
}

TEST_P(EchoMethodsTest, GivesNullsBackAsNulls) {
    const auto result =
        space_.invoke(methodOf(GetParam().type), test::echoServiceXml(), {{"Value", ""}, {"Values", ""}});
    EXPECT_FALSE(result.child("RETURNVALUE"));
    EXPECT_TRUE(named(result, "ValueEcho"));
    EXPECT_FALSE(named(result, "ValueEcho").first_child());
    EXPECT_FALSE(named(result, "ValuesEcho").first_child());
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, EchoMethodsTest,
    testing::Values(Echo{"boolean", "TRUE", {"FALSE", "TRUE"}}, Echo{"uint8", "255", {"0", "1"}},
                    Echo{"sint8", "-128", {"127", "-1"}}, Echo{"uint16", "65535", {}},
                    Echo{"sint16", "-32768", {"32767"}}, Echo{"uint32", "4294967295", {"0"}},
                    Echo{"sint32", "-2147483648", {"2147483647"}},
                    Echo{"uint64", "18446744073709551615", {"0"}},
                    Echo{"sint64", "-9223372036854775808", {"9223372036854775807"}},
                    Echo{"real32", "1.5000000e+00", {"INF", "NaN"}},
                    Echo{"real64", "1.7976931348623157e+308", {"-INF", "0"}}, Echo{"char16", "€", {"a", " "}},
                    Echo{"string", "", {"&lt;&amp;&gt;", " ", "測試 😀"}},
                    Echo{"datetime", "20240912081530.123456+120", {"00000001000000.000000:000"}}),
    [](const testing::TestParamInfo<Echo>& echo) { return echo.param.type; });

TEST_F(EchoMethodsTest, GivesReferencesBack) {
    const std::string reference = "<VALUE.REFERENCE>" + test::echoServiceXml() + "</VALUE.REFERENCE>";
    const auto result = space_.invoke(
        "EchoReference", test::echoServiceXml(),
        {{"Value", reference}, {"Values", "<VALUE.REFARRAY>" + reference + reference + "</VALUE.REFARRAY>"}});
    EXPECT_STREQ(result.child("RETURNVALUE").child_value("VALUE"), "0");
    EXPECT_EQ(xmlOf(firstElement(named(result, "ValueEcho"))), reference);
    EXPECT_EQ(xmlOf(firstElement(named(result, "ValuesEcho"))),
              "<VALUE.REFARRAY>" + reference + reference + "</VALUE.REFARRAY>");
}

TEST_F(EchoMethodsTest, GivesInAndOutParametersBackUnderTheirOwnNames) {
    const auto result = space_.invoke(
        "EchoAll", classNameXml("OMC_EchoService"),
        {{"StringArray", arrayXml({"a", "b"})}, {"Uint8Value", valueXml("0x10")}, {"Sint8Value", ""}});
    EXPECT_STREQ(result.child("RETURNVALUE").child_value("VALUE"), "0");
    EXPECT_STREQ(named(result, "Uint8Value").child_value("VALUE"), "16");
    EXPECT_EQ(xmlOf(firstElement(named(result, "StringArray"))), arrayXml({"a", "b"}));
    EXPECT_TRUE(named(result, "Sint8Value"));
    EXPECT_FALSE(named(result, "Sint8Value").first_child());
    EXPECT_EQ(std::distance(result.children("PARAMVALUE").begin(), result.children("PARAMVALUE").end()), 30);
}

TEST_F(EchoMethodsTest, AnswersWithoutParametersAndWithoutReturnValue) {
    EXPECT_EQ(xmlOf(space_.invoke("Ping", test::echoServiceXml(), {})),
              "<Result><RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE></RETURNVALUE></Result>");
    EXPECT_EQ(xmlOf(space_.invoke("Silence", test::echoServiceXml(), {})), "<Result></Result>");
}

TEST_F(EchoMethodsTest, LeavesInheritedMethodsAlone) {
    EXPECT_EQ(errorOf([&] { space_.invoke("StartService", test::echoServiceXml(), {}); }), 16);
}

}  // namespace
}  // namespace cimom
