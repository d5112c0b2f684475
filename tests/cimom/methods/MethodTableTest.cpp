#include "cimom/methods/MethodTable.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::errorOf;
using test::kMethodNotAvailable;
using test::kMethodNotFound;
using test::smallPath;

TEST(MethodTable, TellsADeclaredMethodWithoutImplementationFromAnUndeclaredOne) {
    test::SmallNameSpace space;
    EXPECT_EQ(errorOf([&] { space.invoke("Touch", smallPath("Leaf", "a"), {}); }), kMethodNotAvailable);
    EXPECT_EQ(errorOf([&] { space.invoke("Nothing", smallPath("Leaf", "a"), {}); }), kMethodNotFound);
}

TEST(MethodTable, KnowsAMethodByTheClassThatItWasWrittenFor) {
    test::SmallNameSpace space;
    // Base has a method of the name that CIM_LogicalDevice has too.
    EXPECT_EQ(errorOf([&] { space.invoke("Reset", smallPath("Leaf", "a"), {}); }), kMethodNotAvailable);
}

}  // namespace
}  // namespace cimom
