#include "convert/ToCore.h"

#include <gtest/gtest.h>

namespace NQELVSK20 {
namespace {

using Pegasus::CIMFlavor;
using Pegasus::CIMScope;

TEST(ToCoreScopeTest, GivesEachSingleScopeItsBit) {
    EXPECT_EQ(ToCoreScope(CIMScope::CLASS), 1u);
    EXPECT_EQ(ToCoreScope(CIMScope::ASSOCIATION), 2u);
    EXPECT_EQ(ToCoreScope(CIMScope::INDICATION), 4u);
    EXPECT_EQ(ToCoreScope(CIMScope::PROPERTY), 8u);
    EXPECT_EQ(ToCoreScope(CIMScope::REFERENCE), 16u);
    EXPECT_EQ(ToCoreScope(CIMScope::METHOD), 32u);
    EXPECT_EQ(ToCoreScope(CIMScope::PARAMETER), 64u);
}

TEST(ToCoreScopeTest, OfClassAndAssociationTogetherIsZero) {
    EXPECT_EQ(ToCoreScope(CIMScope::CLASS + CIMScope::ASSOCIATION), 0u);
}

TEST(ToCoreScopeTest, OfNoScopeIsZero) {
    EXPECT_EQ(ToCoreScope(CIMScope()), 0u);
    EXPECT_EQ(ToCoreScope(CIMScope::NONE), 0u);
}

// The remote library spells ANY out as its seven scopes, which is no keyword.
TEST(ToCoreScopeTest, OfAllScopesIsZero) {
    EXPECT_EQ(ToCoreScope(CIMScope::ANY), 0u);
}

TEST(ToCoreFlavorTest, OfToSubclassIsTwo) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::TOSUBCLASS), 2u);
}

TEST(ToCoreFlavorTest, OfTranslatableIsFour) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::TRANSLATABLE), 4u);
}

TEST(ToCoreFlavorTest, OfRestrictedIsZero) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::RESTRICTED), 0u);
}

// ENABLEOVERRIDE is the same flavor to the remote library, which spells both OVERRIDABLE.
TEST(ToCoreFlavorTest, OfOverridableIsZeroUnderBothItsNames) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::OVERRIDABLE), 0u);
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::ENABLEOVERRIDE), 0u);
}

// The remote library spells DEFAULTS out as its two flavors, which is no keyword.
TEST(ToCoreFlavorTest, OfSeveralFlavorsIsZero) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::DEFAULTS), 0u);
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::TOSUBCLASS + CIMFlavor::TRANSLATABLE), 0u);
}

TEST(ToCoreFlavorTest, OfAFlavorThatTheHostHasNoBitForIsZero) {
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::DISABLEOVERRIDE), 0u);
    EXPECT_EQ(ToCoreFlavor(CIMFlavor::TOINSTANCE), 0u);
    EXPECT_EQ(ToCoreFlavor(CIMFlavor()), 0u);
}

TEST(ToCoreQualifierFlavorTest, OfOneThatMayBeOverriddenIsOneWhateverElseItHas) {
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::OVERRIDABLE), 1u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::ENABLEOVERRIDE), 1u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::DEFAULTS), 1u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::OVERRIDABLE + CIMFlavor::TRANSLATABLE), 1u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::OVERRIDABLE + CIMFlavor::TOSUBCLASS + CIMFlavor::TOINSTANCE +
                                    CIMFlavor::TRANSLATABLE),
              1u);
}

TEST(ToCoreQualifierFlavorTest, OfOneThatMayNotBeOverriddenIsThatOfItsSingleFlavor) {
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::TOSUBCLASS), 2u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::TRANSLATABLE), 4u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::RESTRICTED), 0u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::DISABLEOVERRIDE), 0u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor()), 0u);
}

TEST(ToCoreQualifierFlavorTest, OfSeveralWithoutOverridingIsZero) {
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::TOSUBCLASS + CIMFlavor::TRANSLATABLE), 0u);
    EXPECT_EQ(ToCoreQualifierFlavor(CIMFlavor::DISABLEOVERRIDE + CIMFlavor::TOSUBCLASS), 0u);
}

}  // namespace
}  // namespace NQELVSK20
