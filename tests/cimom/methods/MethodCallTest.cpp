#include "cimom/methods/MethodCall.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::arrayXml;
using test::classNameXml;
using test::errorOf;
using test::kInvalidParameter;
using test::kMethodNotFound;
using test::kNotFound;
using test::smallPath;
using test::valueXml;

class MethodCallTest : public testing::Test {
protected:
    MethodCall prepare(const std::string& path, const test::Arguments& arguments,
                       const std::string& method = "Touch", const std::string& type = "") {
        document_ = std::make_unique<pugi::xml_document>();
        CimRequest request = CimRequest::read(test::extrinsicMessage(method, path, arguments), *document_);
        for (CimArgument& argument : request.arguments) {
            argument.type = type;
        }
        return MethodCall::prepare(request, *space_);
    }

    int errorOfArguments(const test::Arguments& arguments, const std::string& type = "") {
        return errorOf([&] { prepare(smallPath("Leaf", "a"), arguments, "Touch", type); });
    }

    test::SmallNameSpace space_;
    std::unique_ptr<pugi::xml_document> document_;
};

TEST_F(MethodCallTest, FindsInstanceAndInheritedMethod) {
    const MethodCall call = prepare(smallPath("leaf", "a"), {{"count", valueXml(" 0x7 ")}}, "TOUCH");
    EXPECT_EQ(call.type->name, "Leaf");
    EXPECT_EQ(call.method->origin, "Middle");
    EXPECT_EQ(call.instance->valueOf("Id"), "a");
    EXPECT_EQ(call.text("Count"), "7");
    EXPECT_EQ(call.valueXml("Count"), "<VALUE>7</VALUE>");
}

TEST_F(MethodCallTest, HasNoInstanceWhenCalledOnAClass) {
    const MethodCall call = prepare(classNameXml("Middle"), {});
    EXPECT_EQ(call.instance, nullptr);
    EXPECT_EQ(errorOf([&] { call.requireInstance(); }), kInvalidParameter);
}

TEST_F(MethodCallTest, TellsWhatIsMissing) {
    EXPECT_EQ(errorOf([&] { prepare(classNameXml("Nothing"), {}); }), kNotFound);
    EXPECT_EQ(errorOf([&] { prepare(smallPath("Leaf", "z"), {}); }), kNotFound);
    EXPECT_EQ(errorOf([&] { prepare(smallPath("Leaf", "a"), {}, "Nothing"); }), kMethodNotFound);
    EXPECT_EQ(errorOf([&] { prepare(classNameXml("Base"), {}, "Touch"); }), kMethodNotFound);
}

TEST_F(MethodCallTest, RefusesArgumentsThatTheMethodDoesNotTake) {
    EXPECT_EQ(errorOfArguments({{"Odd", valueXml("1")}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Done", valueXml("TRUE")}}), kInvalidParameter) << "out only";
    EXPECT_EQ(errorOfArguments({{"Count", valueXml("1")}, {"COUNT", valueXml("1")}}), kInvalidParameter);
}

TEST_F(MethodCallTest, RefusesValuesThatTheTypeCannotHold) {
    EXPECT_EQ(errorOfArguments({{"Count", valueXml("256")}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Count", valueXml("")}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Count", arrayXml({"1"})}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Texts", valueXml("x")}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Where", valueXml("x")}}), kInvalidParameter);
    EXPECT_EQ(errorOfArguments({{"Others", arrayXml({"x"})}}), kInvalidParameter);
}

TEST_F(MethodCallTest, TakesATypeOnlyIfItIsTheDeclaredOne) {
    EXPECT_EQ(errorOfArguments({{"Count", valueXml("1")}}, "uint8"), 0);
    EXPECT_EQ(errorOfArguments({{"Count", valueXml("1")}}, "uint16"), kInvalidParameter);
    EXPECT_EQ(
        errorOfArguments({{"Where", "<VALUE.REFERENCE>" + smallPath("Leaf", "b") + "</VALUE.REFERENCE>"}},
                         "reference"),
        0);
}

TEST_F(MethodCallTest, TakesNullsAndArraysWithNullElements) {
    EXPECT_EQ(prepare(smallPath("Leaf", "a"), {{"Count", ""}}).valueXml("Count"), "");
    EXPECT_EQ(
        prepare(smallPath("Leaf", "a"),
                {{"Texts", "<VALUE.ARRAY><VALUE>a&amp;</VALUE><VALUE.NULL/><VALUE> </VALUE></VALUE.ARRAY>"}})
            .valueXml("Texts"),
        "<VALUE.ARRAY><VALUE>a&amp;</VALUE><VALUE.NULL></VALUE.NULL><VALUE> </VALUE></VALUE.ARRAY>");
}

}  // namespace
}  // namespace cimom
