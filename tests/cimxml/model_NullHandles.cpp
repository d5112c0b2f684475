#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMQualifierDecl.h>

#include "ApiTesting.h"

using namespace Pegasus;

template <class Handle>
class NullHandle : public testing::Test {};

using AllHandles =
    testing::Types<CIMObject, CIMConstObject, CIMInstance, CIMConstInstance, CIMClass, CIMConstClass,
                   CIMProperty, CIMConstProperty, CIMMethod, CIMConstMethod, CIMParameter, CIMConstParameter,
                   CIMQualifier, CIMConstQualifier, CIMQualifierDecl, CIMConstQualifierDecl, CIMParamValue>;
TYPED_TEST_SUITE(NullHandle, AllHandles, );

TYPED_TEST(NullHandle, CannotBeCloned) {
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { TypeParam().clone(); }),
              "uninitialized object");
}

TYPED_TEST(NullHandle, CanBeCopiedAndAssigned) {
    const TypeParam null;
    TypeParam copy(null);
    copy = null;
    EXPECT_TRUE(copy.isUninitialized());
}
