#include "vskcore/CimNames.h"

#include <gtest/gtest.h>

#include "tests/support/schema/IsCimName.h"

namespace NQELVSK20 {
namespace {

TEST(CimNames, AreNormalizedToLowerCaseInAsciiOnly) {
    EXPECT_EQ(NormalizedName("CIM_ComputerSystem2"), "cim_computersystem2");
    EXPECT_EQ(NormalizedName("\xC3\x84"), "\xC3\x84");
}

TEST(CimNames, AreTheSameButForCase) {
    EXPECT_TRUE(SameName("NodeID", "nodeid"));
    EXPECT_TRUE(SameName("", ""));
    EXPECT_FALSE(SameName("NodeID", "NodeI"));
    EXPECT_FALSE(SameName("a[", "a{"));  // 32 apart as letters of two cases are, but no letters
}

TEST(CimNames, AreOrderedAsTheirNormalizedForms) {
    const TNameLess less;
    EXPECT_TRUE(less("a", "B"));
    EXPECT_TRUE(less("A", "b"));
    EXPECT_FALSE(less("A", "a"));
    EXPECT_TRUE(less("_x", "A"));  // '_' stands before the small letters
    EXPECT_TRUE(less("Ab", "abc"));
}

TEST(CimNames, HashAlikeWhenTheyAreTheSame) {
    EXPECT_EQ(TNameHash()("NodeID"), TNameHash()("nodeid"));
    EXPECT_NE(TNameHash()("NodeID"), TNameHash()("NodeIE"));
}

TEST(CimNames, BeginWithALetterOrUnderscore) {
    EXPECT_TRUE(IsCimName("CIM_Fan"));
    EXPECT_TRUE(IsCimName("_1"));
    for (const char* name : {"", "1a", "a-b", "a b", "a.b", "a ", "<root>", "\xC3\xA4"}) {
        EXPECT_FALSE(IsCimName(name)) << name;
    }
}

}  // namespace
}  // namespace NQELVSK20
