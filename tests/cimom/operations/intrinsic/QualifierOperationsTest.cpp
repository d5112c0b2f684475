#include "cimom/operations/intrinsic/QualifierOperations.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::attributesOf;
using test::errorOf;
using test::valueXml;
using test::xmlOf;

const char* const kUnits =
    "<QUALIFIER.DECLARATION NAME=\"Units\" TYPE=\"string\" TRANSLATABLE=\"true\"><SCOPE "
    "PROPERTY=\"true\"></SCOPE>"
    "<VALUE>None</VALUE></QUALIFIER.DECLARATION>";

class QualifierOperationsTest : public testing::Test {
protected:
    int errorOfRun(const std::string& operation, const test::Arguments& arguments) {
        return errorOf([&] { space_.run(operation, arguments); });
    }
    std::string names() { return attributesOf(space_.run("EnumerateQualifiers", {}), "NAME"); }
    std::string get(const std::string& name) {
        return xmlOf(firstElement(space_.run("GetQualifier", {{"QualifierName", valueXml(name)}})));
    }

    test::SmallNameSpace space_;
};

TEST_F(QualifierOperationsTest, SetQualifierAddsADeclarationAndAnswersNothing) {
    space_.run("SetQualifier", {{"QualifierDeclaration", kUnits}});
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(get("units"), kUnits);
    EXPECT_EQ(names(), "Key Version Description Units");
}

TEST_F(QualifierOperationsTest, SetQualifierReplacesADeclaration) {
    const std::string version =
        "<QUALIFIER.DECLARATION NAME=\"version\" TYPE=\"uint8\"></QUALIFIER.DECLARATION>";
    space_.run("SetQualifier", {{"QualifierDeclaration", version}});
    EXPECT_EQ(get("Version"), version);
    EXPECT_EQ(names(), "Key version Description");
}

TEST_F(QualifierOperationsTest, ADeclarationThatWasSetIsThatOfClassesMadeThereafter) {
    space_.run("SetQualifier",
               {{"QualifierDeclaration",
                 "<QUALIFIER.DECLARATION NAME=\"Mark\" TYPE=\"string\" TOSUBCLASS=\"false\"/>"}});
    space_.add(test::object("<CLASS NAME=\"Upper\"><QUALIFIER NAME=\"Mark\" TYPE=\"string\"/></CLASS>") +
               test::object("<CLASS NAME=\"Lower\" SUPERCLASS=\"Upper\"/>"));
    EXPECT_TRUE(space_->classes.find("Lower")->qualifiers.empty());
}

TEST_F(QualifierOperationsTest, DeleteQualifierTakesOneAway) {
    space_.run("DeleteQualifier", {{"QualifierName", valueXml("VERSION")}});
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(names(), "Key Description");
    EXPECT_EQ(get("Description").substr(0, 42), "<QUALIFIER.DECLARATION NAME=\"Description\" ");
    EXPECT_EQ(errorOfRun("GetQualifier", {{"QualifierName", valueXml("Version")}}), test::kNotFound);
    EXPECT_EQ(errorOfRun("DeleteQualifier", {{"QualifierName", valueXml("Version")}}), test::kNotFound);
}

TEST_F(QualifierOperationsTest, RefusesArgumentsThatAreNone) {
    EXPECT_EQ(errorOfRun("SetQualifier", {}), test::kInvalidParameter);
    EXPECT_EQ(errorOfRun("SetQualifier", {{"QualifierDeclaration", valueXml("Key")}}),
              test::kInvalidParameter);
    for (const char* attributes :
         {"", "NAME=\"X\"", "TYPE=\"string\"", "NAME=\"X\" TYPE=\"text\"", "NAME=\"X\" TYPE=\"reference\""}) {
        const std::string declaration = std::string("<QUALIFIER.DECLARATION ") + attributes + "/>";
        EXPECT_EQ(errorOfRun("SetQualifier", {{"QualifierDeclaration", declaration}}),
                  test::kInvalidParameter)
            << attributes;
    }
    EXPECT_EQ(errorOfRun("DeleteQualifier", {}), test::kInvalidParameter);
    EXPECT_EQ(names(), "Key Version Description");
}

}  // namespace
}  // namespace cimom
