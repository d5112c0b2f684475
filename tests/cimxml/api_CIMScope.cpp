#include <Pegasus/Common/CIMScope.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMScope, IsEmptyByDefault) {
    EXPECT_TRUE(CIMScope().equal(CIMScope::NONE));
    EXPECT_EQ(utf8(CIMScope().toString()), "");
}

TEST(CIMScope, TextsOfSingleScopes) {
    EXPECT_EQ(utf8(CIMScope::CLASS.toString()), "CLASS");
    EXPECT_EQ(utf8(CIMScope::ASSOCIATION.toString()), "ASSOCIATION");
    EXPECT_EQ(utf8(CIMScope::INDICATION.toString()), "INDICATION");
    EXPECT_EQ(utf8(CIMScope::PROPERTY.toString()), "PROPERTY");
    EXPECT_EQ(utf8(CIMScope::REFERENCE.toString()), "REFERENCE");
    EXPECT_EQ(utf8(CIMScope::METHOD.toString()), "METHOD");
    EXPECT_EQ(utf8(CIMScope::PARAMETER.toString()), "PARAMETER");
}

TEST(CIMScope, AnyListsAllSevenInOrder) {
    EXPECT_EQ(utf8(CIMScope::ANY.toString()),
              "CLASS ASSOCIATION INDICATION PROPERTY REFERENCE METHOD PARAMETER");
}

TEST(CIMScope, Adds) {
    CIMScope scope;
    scope.addScope(CIMScope::PARAMETER);
    scope.addScope(CIMScope::CLASS);
    scope.addScope(CIMScope::CLASS);
    EXPECT_EQ(utf8(scope.toString()), "CLASS PARAMETER");
    EXPECT_EQ(utf8((CIMScope::METHOD + CIMScope::PROPERTY).toString()), "PROPERTY METHOD");
}

TEST(CIMScope, HasAScopeOnlyWhenItHasAllOfIt) {
    const CIMScope scope = CIMScope::CLASS + CIMScope::METHOD;
    EXPECT_TRUE(scope.hasScope(CIMScope::METHOD));
    EXPECT_TRUE(scope.hasScope(CIMScope::NONE));
    EXPECT_TRUE(scope.hasScope(scope));
    EXPECT_FALSE(scope.hasScope(CIMScope::ANY));
    EXPECT_FALSE(scope.hasScope(CIMScope::CLASS + CIMScope::PROPERTY));
    EXPECT_TRUE(CIMScope::ANY.hasScope(scope));
}

TEST(CIMScope, CopiesAndAssigns) {
    CIMScope scope(CIMScope::CLASS);
    CIMScope other;
    other = scope;
    scope.addScope(CIMScope::METHOD);
    EXPECT_TRUE(other.equal(CIMScope::CLASS));
    EXPECT_FALSE(other.equal(scope));
}
