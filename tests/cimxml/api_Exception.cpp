#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Exception.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

template <class E>
std::string ownMessageOf(const E& exception) {
    try {
        throw exception;
    } catch (const Exception& caught) {
        return utf8(caught.getMessage());
    }
}

}  // namespace

TEST(Exception, HasItsMessage) {
    EXPECT_EQ(ownMessageOf(Exception(String("text"))), "text");
}

TEST(Exception, MessagesWithoutArgument) {
    EXPECT_EQ(ownMessageOf(IndexOutOfBoundsException()), "index out of bounds");
    EXPECT_EQ(ownMessageOf(UninitializedObjectException()), "uninitialized object");
    EXPECT_EQ(ownMessageOf(TypeMismatchException()), "type mismatch");
    EXPECT_EQ(ownMessageOf(DynamicCastFailedException()), "dynamic cast failed");
    EXPECT_EQ(ownMessageOf(InvalidDateTimeFormatException()), "invalid datetime format");
    EXPECT_EQ(ownMessageOf(CannotCreateSocketException()), "Cannot create socket");
    EXPECT_EQ(ownMessageOf(AlreadyConnectedException()), "already connected");
    EXPECT_EQ(ownMessageOf(NotConnectedException()), "not connected");
    EXPECT_EQ(ownMessageOf(ConnectionTimeoutException()), "connection timed out");
    EXPECT_EQ(ownMessageOf(InvalidEnumerationContextException()),
              "Invalid Enumeration Context, uninitilialized");
}

TEST(Exception, MessagesWithArgument) {
    const String x("X");
    EXPECT_EQ(ownMessageOf(AlreadyExistsException(x)), "already exists: X");
    EXPECT_EQ(ownMessageOf(InvalidNameException(x)), "The CIM name is not valid: X");
    EXPECT_EQ(ownMessageOf(InvalidNamespaceNameException(x)), "invalid CIM namespace name: X");
    EXPECT_EQ(ownMessageOf(TypeMismatchException(x)), "type mismatch: X");
    EXPECT_EQ(ownMessageOf(DateTimeOutOfRangeException(x)), "DateTime is out of range : X");
    EXPECT_EQ(ownMessageOf(MalformedObjectNameException(x)), "malformed object name: X");
    EXPECT_EQ(ownMessageOf(BindFailedException(x)), "Bind failed: X");
    EXPECT_EQ(ownMessageOf(InvalidLocatorException(x)), "Invalid locator: X");
    EXPECT_EQ(ownMessageOf(CannotConnectException(x)), "X");
    EXPECT_EQ(ownMessageOf(SSLException(x)), "SSL Exception: X");
}

TEST(Exception, CopiesKeepTheMessage) {
    const Exception original(String("one"));
    Exception copy(original);
    Exception assigned(String("two"));
    assigned = copy;
    const Exception& same = assigned;
    assigned = same;
    EXPECT_EQ(utf8(copy.getMessage()), "one");
    EXPECT_EQ(utf8(assigned.getMessage()), "one");
}

TEST(CIMException, HasCodeAndMessage) {
    const CIMException exception(CIM_ERR_NOT_FOUND, String("no such thing"));
    EXPECT_EQ(exception.getCode(), CIM_ERR_NOT_FOUND);
    EXPECT_EQ(ownMessageOf(exception), "no such thing");
}

TEST(CIMException, IsSuccessWithoutTextByDefault) {
    const CIMException exception;
    EXPECT_EQ(exception.getCode(), CIM_ERR_SUCCESS);
    EXPECT_EQ(ownMessageOf(exception), "");
}

TEST(CIMException, TakesErrorInstances) {
    const CIMInstance instance(CIMName("CIM_Error"));
    EXPECT_EQ(CIMException(CIM_ERR_FAILED, String("x"), instance).getCode(), CIM_ERR_FAILED);
    const Array<CIMInstance> instances(2, instance);
    EXPECT_EQ(ownMessageOf(CIMException(CIM_ERR_FAILED, String("x"), instances)), "x");
}

TEST(CIMException, CopiesKeepCodeAndMessage) {
    const CIMException original(CIM_ERR_INVALID_CLASS, String("one"));
    CIMException copy(original);
    CIMException assigned;
    assigned = copy;
    EXPECT_EQ(assigned.getCode(), CIM_ERR_INVALID_CLASS);
    EXPECT_EQ(utf8(assigned.getMessage()), "one");
    try {
        throw assigned;
    } catch (const CIMException& caught) {
        EXPECT_EQ(caught.getCode(), CIM_ERR_INVALID_CLASS);
    }
}
