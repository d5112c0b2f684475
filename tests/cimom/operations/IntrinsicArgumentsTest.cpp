#include "cimom/operations/IntrinsicArguments.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::arrayXml;
using test::classNameXml;
using test::errorOf;
using test::kInvalidParameter;
using test::valueXml;

class IntrinsicArgumentsTest : public testing::Test {
protected:
    IntrinsicArguments make(const test::Arguments& arguments) {
        document_ = std::make_unique<pugi::xml_document>();
        request_ = CimRequest::read(test::intrinsicMessage("Operation", arguments), *document_);
        return IntrinsicArguments(request_, {"Flag", "ClassName", "PropertyList", "InstanceName", "Text"});
    }

    std::unique_ptr<pugi::xml_document> document_;
    CimRequest request_;
};

TEST_F(IntrinsicArgumentsTest, FindsArgumentsWithoutRegardToCase) {
    EXPECT_TRUE(make({{"fLAG", valueXml("TRUE")}}).boolean("Flag", false));
}

TEST_F(IntrinsicArgumentsTest, ReadsBooleansInAnyCase) {
    EXPECT_FALSE(make({{"Flag", valueXml("false")}}).boolean("Flag", true));
    EXPECT_TRUE(make({}).boolean("Flag", true)) << "missing";
    EXPECT_TRUE(make({{"Flag", ""}}).boolean("Flag", true)) << "null";
    EXPECT_EQ(errorOf([&] { make({{"Flag", valueXml("yes")}}).boolean("Flag", true); }), kInvalidParameter);
    EXPECT_EQ(errorOf([&] { make({{"Flag", classNameXml("C")}}).boolean("Flag", true); }), kInvalidParameter);
}

TEST_F(IntrinsicArgumentsTest, RefusesUnknownAndRepeatedArguments) {
    EXPECT_EQ(errorOf([&] { make({{"Odd", valueXml("1")}}); }), kInvalidParameter);
    EXPECT_EQ(errorOf([&] {
                  make({{"Flag", valueXml("TRUE")}, {"FLAG", valueXml("TRUE")}});
              }),
              kInvalidParameter);
}

TEST_F(IntrinsicArgumentsTest, ReadsClassNames) {
    EXPECT_EQ(make({{"ClassName", classNameXml("C")}}).className("ClassName"), "C");
    EXPECT_EQ(make({{"ClassName", ""}}).className("ClassName"), "");
    EXPECT_EQ(errorOf([&] { make({{"ClassName", ""}}).requiredClassName("ClassName"); }), kInvalidParameter);
    EXPECT_EQ(errorOf([&] {
                  make({{"ClassName", valueXml("C")}}).className("ClassName");
              }),
              kInvalidParameter);
    EXPECT_EQ(errorOf([&] {
                  make({{"ClassName", classNameXml("")}}).className("ClassName");
              }),
              kInvalidParameter);
}

TEST_F(IntrinsicArgumentsTest, TellsANullPropertyListFromAnEmptyOne) {
    EXPECT_FALSE(make({}).propertyList());
    EXPECT_FALSE(make({{"PropertyList", ""}}).propertyList());
    const auto empty = make({{"PropertyList", arrayXml({})}}).propertyList();
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->empty());
    EXPECT_EQ(make({{"PropertyList", arrayXml({"Id", "ID", "b"})}}).propertyList()->size(), 2U);
    EXPECT_EQ(errorOf([&] { make({{"PropertyList", valueXml("Id")}}).propertyList(); }), kInvalidParameter);
}

TEST_F(IntrinsicArgumentsTest, ReadsInstanceNamesAndTexts) {
    EXPECT_EQ(
        make({{"InstanceName", test::smallPath("C", "1")}}).requiredInstanceName("InstanceName").className,
        "C");
    EXPECT_EQ(errorOf([&] {
                  make({{"InstanceName", classNameXml("C")}}).requiredInstanceName("InstanceName");
              }),
              kInvalidParameter);
    EXPECT_EQ(make({{"Text", valueXml("t")}}).requiredText("Text"), "t");
    EXPECT_EQ(errorOf([&] { make({}).requiredText("Text"); }), kInvalidParameter);
}

}  // namespace
}  // namespace cimom
