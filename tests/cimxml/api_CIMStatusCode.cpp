#include <Pegasus/Common/CIMStatusCode.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMStatusCode, HasNames) {
    EXPECT_STREQ(cimStatusCodeToString(CIM_ERR_SUCCESS), "CIM_ERR_SUCCESS");
    EXPECT_STREQ(cimStatusCodeToString(CIM_ERR_FAILED), "CIM_ERR_FAILED");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(2)), "CIM_ERR_ACCESS_DENIED");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(3)), "CIM_ERR_INVALID_NAMESPACE");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(4)), "CIM_ERR_INVALID_PARAMETER");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(5)), "CIM_ERR_INVALID_CLASS");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(6)), "CIM_ERR_NOT_FOUND");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(7)), "CIM_ERR_NOT_SUPPORTED");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(8)), "CIM_ERR_CLASS_HAS_CHILDREN");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(9)), "CIM_ERR_CLASS_HAS_INSTANCES");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(10)), "CIM_ERR_INVALID_SUPERCLASS");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(11)), "CIM_ERR_ALREADY_EXISTS");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(12)), "CIM_ERR_NO_SUCH_PROPERTY");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(13)), "CIM_ERR_TYPE_MISMATCH");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(14)), "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(15)), "CIM_ERR_INVALID_QUERY");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(16)), "CIM_ERR_METHOD_NOT_AVAILABLE");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(17)), "CIM_ERR_METHOD_NOT_FOUND");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(20)), "CIM_ERR_NAMESPACE_NOT_EMPTY");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(28)), "CIM_ERR_SERVER_IS_SHUTTING_DOWN");
}

TEST(CIMStatusCode, WithoutNameHasAText) {
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(18)), "empty");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(19)), "empty");
    EXPECT_STREQ(cimStatusCodeToString(CIMStatusCode(29)), "Unrecognized CIM status code");
}
