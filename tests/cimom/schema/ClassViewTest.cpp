#include "cimom/schema/ClassView.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

class ClassViewTest : public testing::Test {
protected:
    const ClassView& view(const char* name) { return *space_->classes.find(name); }

    const MemberView& property(const char* className, const char* name) {
        const ClassView& type = view(className);
        return type.properties.at(static_cast<std::size_t>(type.findProperty(name)));
    }

    test::SmallNameSpace space_;
};

std::string namesOf(const std::vector<MemberView>& members) {
    std::string names;
    for (const MemberView& member : members) {
        names.append(names.empty() ? "" : " ").append(member.name);
    }
    return names;
}

std::string namesOf(const std::vector<QualifierView>& qualifiers) {
    std::string names;
    for (const QualifierView& qualifier : qualifiers) {
        names.append(names.empty() ? "" : " ").append(qualifier.key).append(qualifier.propagated ? "*" : "");
    }
    return names;
}

TEST_F(ClassViewTest, ListsInheritedMembersFirstAndOverridesInPlace) {
    EXPECT_EQ(namesOf(view("Leaf").properties), "Id Caption Level Size Tags Parent");
    EXPECT_EQ(namesOf(view("Leaf").methods), "Reset Touch");
}

TEST_F(ClassViewTest, MarksMembersThatOnlyASuperclassDeclares) {
    EXPECT_TRUE(property("Middle", "Id").propagated);
    EXPECT_FALSE(property("Middle", "Level").propagated);
    EXPECT_TRUE(property("Leaf", "Level").propagated);
}

TEST_F(ClassViewTest, NamesTheClassThatIntroducedAMember) {
    EXPECT_EQ(property("Leaf", "Id").origin, "Base");
    EXPECT_EQ(property("Leaf", "Level").origin, "Base");
    EXPECT_EQ(property("Leaf", "Size").origin, "Middle");
    EXPECT_EQ(property("Leaf", "Tags").origin, "Leaf");
}

TEST_F(ClassViewTest, InheritsQualifiersThatGoToSubclassesOnly) {
    EXPECT_EQ(namesOf(view("Base").qualifiers), "version description");
    EXPECT_EQ(namesOf(view("Leaf").qualifiers), "description*");
}

TEST_F(ClassViewTest, LetsAnOverridingMemberKeepItsOwnQualifiers) {
    EXPECT_EQ(namesOf(property("Middle", "Level").qualifiers), "description units*");
    EXPECT_EQ(namesOf(property("Leaf", "Level").qualifiers), "description* units*");
}

TEST_F(ClassViewTest, KnowsKeysOfSuperclasses) {
    EXPECT_TRUE(property("Leaf", "Id").isKey);
    EXPECT_FALSE(property("Leaf", "Caption").isKey);
}

TEST_F(ClassViewTest, KnowsTypes) {
    EXPECT_EQ(property("Leaf", "Level").type(), "uint16");
    EXPECT_EQ(property("Leaf", "Parent").type(), "reference");
}

TEST_F(ClassViewTest, FindsMembersWithoutRegardToCase) {
    EXPECT_EQ(view("Leaf").findProperty("tAGS"), 4);
    EXPECT_EQ(view("Leaf").findProperty("Nothing"), -1);
    EXPECT_NE(view("Leaf").findMethod("TOUCH"), nullptr);
    EXPECT_EQ(view("Other").findMethod("Touch"), nullptr);
}

TEST_F(ClassViewTest, KnowsWhatItInheritsFrom) {
    EXPECT_TRUE(view("Leaf").isOrInherits(view("Base")));
    EXPECT_TRUE(view("Leaf").isOrInherits(view("Leaf")));
    EXPECT_FALSE(view("Base").isOrInherits(view("Leaf")));
    EXPECT_FALSE(view("Other").isOrInherits(view("Base")));
}

TEST_F(ClassViewTest, KnowsAMethodsParameters) {
    const auto& parameters = view("Leaf").findMethod("Touch")->parameters;
    ASSERT_EQ(parameters.size(), 5U);
    EXPECT_EQ(parameters[0].type(), "uint8");
    EXPECT_FALSE(parameters[0].isArray());
    EXPECT_TRUE(parameters[1].isArray());
    EXPECT_FALSE(parameters[2].flag("in", true));
    EXPECT_TRUE(parameters[2].flag("out", false));
    EXPECT_EQ(parameters[3].type(), "reference");
    EXPECT_TRUE(parameters[4].isArray());
    EXPECT_EQ(parameters[4].type(), "reference");
}

TEST_F(ClassViewTest, TakesABooleanQualifierWithoutValueAsTrue) {
    space_.add(
        test::object("<CLASS NAME=\"Bare\"><PROPERTY NAME=\"K\" TYPE=\"string\">"
                     "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\"/></PROPERTY></CLASS>"));
    EXPECT_TRUE(property("Bare", "K").isKey);
}

TEST_F(ClassViewTest, TakesWhatIsMarkedAsPropagatedFromTheSuperclass) {
    space_.add(test::object(
        "<CLASS NAME=\"Whole\" SUPERCLASS=\"Middle\">"
        "<QUALIFIER NAME=\"Description\" TYPE=\"string\" PROPAGATED=\"true\"><VALUE>The "
        "base</VALUE></QUALIFIER>"
        "<QUALIFIER NAME=\"Version\" TYPE=\"string\" PROPAGATED=\"true\"><VALUE>1.0</VALUE></QUALIFIER>"
        "<PROPERTY NAME=\"Id\" TYPE=\"string\" CLASSORIGIN=\"Base\" PROPAGATED=\"true\"/>"
        "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"><QUALIFIER NAME=\"Units\" TYPE=\"string\" "
        "PROPAGATED=\"TRUE\"/>"
        "</PROPERTY>"
        "<PROPERTY NAME=\"Colour\" TYPE=\"string\" PROPAGATED=\"true\"/>"
        "<METHOD NAME=\"Touch\" TYPE=\"uint32\" PROPAGATED=\"true\"/></CLASS>"));
    const ClassView& whole = view("Whole");
    EXPECT_EQ(namesOf(whole.qualifiers), "version description*") << "no Version comes from above";
    EXPECT_EQ(namesOf(whole.properties), "Id Caption Level Size Colour");
    EXPECT_TRUE(property("Whole", "Id").propagated);
    EXPECT_TRUE(property("Whole", "Id").isKey);
    EXPECT_FALSE(property("Whole", "Level").propagated);
    EXPECT_EQ(namesOf(property("Whole", "Level").qualifiers), "description* units*");
    EXPECT_EQ(property("Whole", "Colour").origin, "Whole") << "which nothing above has";
    EXPECT_EQ(whole.findMethod("Touch")->parameters.size(), 5U);
}

}  // namespace
}  // namespace cimom
