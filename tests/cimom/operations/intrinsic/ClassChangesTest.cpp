// Classes that clients make, change and take away.

#include <gtest/gtest.h>

#include "cimom/operations/intrinsic/ClassOperations.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::attributesOf;
using test::classNameXml;
using test::errorOf;

std::string classXml(const std::string& attributes, const std::string& property) {
    return "<CLASS " + attributes + "><PROPERTY NAME=\"" + property +
           "\" TYPE=\"string\"></PROPERTY></CLASS>";
}

class ClassChangesTest : public testing::Test {
protected:
    int errorOfRun(const std::string& operation, const std::string& argument, const std::string& value) {
        return errorOf([&] { space_.run(operation, {{argument, value}}); });
    }
    int errorOfCreating(const std::string& element) { return errorOfRun("CreateClass", "NewClass", element); }
    int errorOfModifying(const std::string& element) {
        return errorOfRun("ModifyClass", "ModifiedClass", element);
    }
    int errorOfDeleting(const std::string& name) {
        return errorOfRun("DeleteClass", "ClassName", classNameXml(name));
    }
    std::string membersOf(const std::string& name) {
        return attributesOf(space_
                                .run("GetClass", {{"ClassName", classNameXml(name)},
                                                  {"LocalOnly", test::valueXml("FALSE")},
                                                  {"IncludeQualifiers", test::valueXml("FALSE")}})
                                .first_child(),
                            "NAME");
    }

    test::SmallNameSpace space_;
};

TEST_F(ClassChangesTest, CreatesAClassThatInheritsAndAnswersNothing) {
    EXPECT_EQ(errorOfCreating(classXml("NAME=\"New\" SUPERCLASS=\"other\"", "Colour")), 0);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(membersOf("new"), "Number Colour");
}

TEST_F(ClassChangesTest, RefusesToCreateWhatCannotBe) {
    EXPECT_EQ(errorOfCreating(classXml("NAME=\"leaf\"", "Colour")), test::kAlreadyExists);
    EXPECT_EQ(errorOfCreating(classXml("NAME=\"New\" SUPERCLASS=\"Nothing\"", "Colour")),
              test::kInvalidSuperclass);
    EXPECT_EQ(errorOfCreating(classXml("", "Colour")), test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating(classXml("NAME=\"New\"", "")), test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating(classNameXml("New")), test::kInvalidParameter);
    EXPECT_EQ(errorOf([&] { space_.run("CreateClass", {}); }), test::kInvalidParameter);
    EXPECT_EQ(errorOf([&] { membersOf("New"); }), test::kNotFound);
}

TEST_F(ClassChangesTest, ModifiesAClassThatNothingHangsOn) {
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Other\" SUPERCLASS=\"Base\"", "Colour")), 0);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(membersOf("Other"), "Id Caption Level Colour Reset");
}

TEST_F(ClassChangesTest, RefusesToChangeAClassThatOthersHangOn) {
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Base\"", "Colour")), test::kClassHasChildren);
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Leaf\"", "Colour")), test::kClassHasInstances);
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Nothing\"", "Colour")), test::kNotFound);
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Other\" SUPERCLASS=\"Nothing\"", "C")),
              test::kInvalidSuperclass);
    EXPECT_EQ(errorOfModifying(classXml("NAME=\"Other\" SUPERCLASS=\"Other\"", "C")),
              test::kInvalidSuperclass);
    EXPECT_EQ(membersOf("Other"), "Number");
    EXPECT_EQ(errorOfDeleting("Middle"), test::kClassHasChildren);
    EXPECT_EQ(errorOfDeleting("Leaf"), test::kClassHasInstances);
    EXPECT_EQ(errorOfDeleting("Nothing"), test::kNotFound);
    EXPECT_EQ(errorOf([&] { space_.run("DeleteClass", {}); }), test::kInvalidParameter);
}

TEST_F(ClassChangesTest, DeletesAClassWhoseNameIsFreeThen) {
    EXPECT_EQ(errorOfDeleting("other"), 0);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(errorOf([&] { membersOf("Other"); }), test::kNotFound);
    EXPECT_EQ(attributesOf(space_.run("EnumerateClassNames", {}), "NAME"), "Base");
    EXPECT_EQ(errorOfCreating(classXml("NAME=\"Other\"", "Colour")), 0);
    EXPECT_EQ(membersOf("Other"), "Colour");
}

}  // namespace
}  // namespace cimom
