#include "cimom/schema/ClassStore.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

std::string namesOf(const std::vector<const ClassView*>& classes) {
    std::string names;
    for (const ClassView* view : classes) {
        names.append(names.empty() ? "" : " ").append(view->name);
    }
    return names;
}

TEST(ClassStore, ListsTopLevelClassesOrAll) {
    test::SmallNameSpace space;
    EXPECT_EQ(namesOf(space->classes.subclasses(nullptr, false)), "Base Other");
    EXPECT_EQ(namesOf(space->classes.subclasses(nullptr, true)), "Base Middle Leaf Other");
}

TEST(ClassStore, ListsSubclassesWithoutTheClassItself) {
    test::SmallNameSpace space;
    const ClassView* base = space->classes.find("base");
    EXPECT_EQ(namesOf(space->classes.subclasses(base, false)), "Middle");
    EXPECT_EQ(namesOf(space->classes.subclasses(base, true)), "Middle Leaf");
}

TEST(ClassStore, LetsSubclassesInheritFromAClassRedeclared) {
    test::SmallNameSpace space;
    const ClassView* leaf = space->classes.find("Leaf");
    space.add(
        test::object("<CLASS NAME=\"MIDDLE\" SUPERCLASS=\"Base\"><PROPERTY NAME=\"Size\" TYPE=\"sint32\"/>"
                     "<PROPERTY NAME=\"Depth\" TYPE=\"uint8\"/></CLASS>"));
    EXPECT_EQ(space->classes.find("Leaf"), leaf);
    EXPECT_GE(leaf->findProperty("Depth"), 0);
    EXPECT_EQ(leaf->findMethod("Touch"), nullptr);
    EXPECT_EQ(namesOf(space->classes.subclasses(nullptr, true)), "Base MIDDLE Leaf Other");
}

TEST(ClassStore, RefusesAnUnknownSuperclass) {
    test::SmallNameSpace space;
    EXPECT_THROW(space.add(test::object("<CLASS NAME=\"New\" SUPERCLASS=\"Nothing\"/>")), std::runtime_error);
    EXPECT_EQ(space->classes.find("New"), nullptr);
}

TEST(ClassStore, RefusesAClassThatInheritsFromItself) {
    test::SmallNameSpace space;
    EXPECT_THROW(space.add(test::object("<CLASS NAME=\"Base\" SUPERCLASS=\"Leaf\"/>")), std::runtime_error);
    EXPECT_THROW(space.add(test::object("<CLASS NAME=\"Base\" SUPERCLASS=\"Base\"/>")), std::runtime_error);
    EXPECT_EQ(space->classes.find("Base")->superClass, nullptr);
}

}  // namespace
}  // namespace cimom
