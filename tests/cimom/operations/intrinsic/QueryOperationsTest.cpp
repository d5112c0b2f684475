#include "cimom/operations/intrinsic/QueryOperations.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallAssociations.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::errorOf;
using test::valueXml;

class QueryOperationsTest : public testing::Test {
protected:
    pugi::xml_node query(const std::string& text, const std::string& language = "WQL") {
        return space_.run("ExecQuery", {{"QueryLanguage", valueXml(language)}, {"Query", valueXml(text)}});
    }

    test::SmallNameSpace space_;
};

TEST_F(QueryOperationsTest, SendsTheSelectedInstancesWithTheirPaths) {
    EXPECT_EQ(test::objectsOf(query("select * from Base")), "a m b");
    EXPECT_EQ(
        test::xmlOf(firstElement(query("SELECT Size, Level FROM Middle WHERE Size &lt; 0", "wql"))),
        "<VALUE.OBJECTWITHPATH><INSTANCEPATH><NAMESPACEPATH><HOST>localhost</HOST><LOCALNAMESPACEPATH>"
        "<NAMESPACE NAME=\"root\"></NAMESPACE><NAMESPACE NAME=\"cimv2\"></NAMESPACE></LOCALNAMESPACEPATH>"
        "</NAMESPACEPATH><INSTANCENAME CLASSNAME=\"Leaf\"><KEYBINDING NAME=\"Id\"><KEYVALUE "
        "VALUETYPE=\"string\">a"
        "</KEYVALUE></KEYBINDING></INSTANCENAME></INSTANCEPATH><INSTANCE CLASSNAME=\"Leaf\"><PROPERTY "
        "NAME=\"Size\" "
        "TYPE=\"sint32\"><VALUE>-5</VALUE></PROPERTY><PROPERTY NAME=\"Level\" "
        "TYPE=\"uint16\"><VALUE>2</VALUE>"
        "</PROPERTY></INSTANCE></VALUE.OBJECTWITHPATH>");
}

TEST_F(QueryOperationsTest, RefusesOtherLanguagesAndWhatIsNoQuery) {
    EXPECT_EQ(errorOf([&] { query("SELECT * FROM Base", "DMTF:CQL"); }), test::kQueryLanguageNotSupported);
    EXPECT_EQ(errorOf([&] { query("SELECT * FROM Nothing"); }), test::kInvalidQuery);
    EXPECT_EQ(errorOf([&] { query(""); }), test::kInvalidQuery);
    EXPECT_EQ(errorOf([&] {
                  space_.run("ExecQuery", {{"QueryLanguage", valueXml("WQL")}});
              }),
              test::kInvalidParameter);
    EXPECT_EQ(errorOf([&] {
                  space_.run("ExecQuery", {{"Query", valueXml("SELECT * FROM Base")}});
              }),
              test::kInvalidParameter);
}

}  // namespace
}  // namespace cimom
