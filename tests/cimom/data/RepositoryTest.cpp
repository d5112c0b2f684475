#include "cimom/data/Repository.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "cimom/data/RepositoryData.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

std::size_t countOf(Repository& repository, const std::string& nameSpace, const std::string& className) {
    NameSpace& space = *repository.data().find(nameSpace);
    return space.instances.ofClassAndBelow(*space.classes.find(className)).size();
}

TEST(Repository, KeepsNamespacesApart) {
    Repository repository;
    repository.addDeclarations("root/a", test::kSmallDeclarations, "small.xml");
    repository.addDeclarations("/root/B/", test::declarations(test::object("<CLASS NAME=\"Only\"/>")),
                               "b.xml");
    ASSERT_NE(repository.data().find("root/a"), nullptr);
    EXPECT_EQ(repository.data().find("root/a")->classes.find("Only"), nullptr);
    EXPECT_NE(repository.data().find("ROOT/b")->classes.find("Only"), nullptr);
    EXPECT_EQ(repository.data().find("root/c"), nullptr);
}

TEST(Repository, AddsToANamespaceThatIsThere) {
    Repository repository;
    repository.addDeclarations("root/a", test::kSmallDeclarations, "small.xml");
    repository.addDeclarations(
        "root/a", test::declarations(test::object("<CLASS NAME=\"New\" SUPERCLASS=\"Leaf\"/>")), "more.xml");
    EXPECT_EQ(repository.data().find("root/a")->classes.find("New")->superClass->name, "Leaf");
}

TEST(Repository, MultipliesInstances) {
    Repository repository;
    repository.addDeclarations("root/a", test::kSmallDeclarations, "small.xml");
    repository.multiplyInstances("root/a", "leaf", 100);
    EXPECT_EQ(countOf(repository, "root/a", "Leaf"), 100U);
    EXPECT_EQ(countOf(repository, "root/a", "Base"), 101U);
}

TEST(Repository, SaysWhatCannotBeMultiplied) {
    Repository repository;
    repository.addDeclarations("root/a", test::kSmallDeclarations, "small.xml");
    EXPECT_THROW(repository.multiplyInstances("root/b", "Leaf", 2), std::runtime_error);
    EXPECT_THROW(repository.multiplyInstances("root/a", "Nothing", 2), std::runtime_error);
    EXPECT_THROW(repository.multiplyInstances("root/a", "Other", 2), std::runtime_error);
}

TEST(Repository, ServesTheSampleUnderAnotherName) {
    Repository repository;
    repository.addSample("root/vqm2", 0);
    EXPECT_EQ(countOf(repository, "root/vqm2", "OMC_NumericSensor"), 13U);
    EXPECT_EQ(repository.data().find("root/cimv2"), nullptr);
}

}  // namespace
}  // namespace cimom
