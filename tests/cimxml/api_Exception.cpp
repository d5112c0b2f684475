#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Exception.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

template <class E>
std::string messageOf(const E& exception) {
    try {
        throw exception;
    } catch (const Exception& caught) {
        return utf8(caught.getMessage());
    }
}

}  // namespace

TEST(Exception, HasItsMessage) {
    EXPECT_EQ(messageOf(Exception(String("text"))), "text");
}

TEST(Exception, MessagesWithoutArgument) {
    EXPECT_EQ(messageOf(IndexOutOfBoundsException()), "index out of bounds");
    EXPECT_EQ(messageOf(UninitializedObjectException()), "uninitialized object");
    EXPECT_EQ(messageOf(TypeMismatchException()), "type mismatch");
    EXPECT_EQ(messageOf(DynamicCastFailedException()), "dynamic cast failed");
    EXPECT_EQ(messageOf(InvalidDateTimeFormatException()), "invalid datetime format");
    EXPECT_EQ(messageOf(CannotCreateSocketException()), "Cannot create socket");
    EXPECT_EQ(messageOf(AlreadyConnectedException()), "already connected");
    EXPECT_EQ(messageOf(NotConnectedException()), "not connected");
    EXPECT_EQ(messageOf(ConnectionTimeoutException()), "connection timed out");
    EXPECT_EQ(messageOf(InvalidEnumerationContextException()),
              "Invalid Enumeration Context, uninitilialized");
}

TEST(Exception, MessagesWithArgument) {
    const String x("X");
    EXPECT_EQ(messageOf(AlreadyExistsException(x)), "already exists: X");
    EXPECT_EQ(messageOf(InvalidNameException(x)), "The CIM name is not valid: X");
    EXPECT_EQ(messageOf(InvalidNamespaceNameException(x)), "invalid CIM namespace name: X");
    EXPECT_EQ(messageOf(TypeMismatchException(x)), "type mismatch: X");
    EXPECT_EQ(messageOf(DateTimeOutOfRangeException(x)), "DateTime is out of range : X");
    EXPECT_EQ(messageOf(MalformedObjectNameException(x)), "malformed object name: X");
    EXPECT_EQ(messageOf(BindFailedException(x)), "Bind failed: X");
    EXPECT_EQ(messageOf(InvalidLocatorException(x)), "Invalid locator: X");
    EXPECT_EQ(messageOf(CannotConnectException(x)), "X");
    EXPECT_EQ(messageOf(SSLException(x)), "SSL Exception: X");
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
    EXPECT_EQ(messageOf(exception), "no such thing");
}

TEST(CIMException, IsSuccessWithoutTextByDefault) {
    const CIMException exception;
    EXPECT_EQ(exception.getCode(), CIM_ERR_SUCCESS);
    EXPECT_EQ(messageOf(exception), "");
}

TEST(CIMException, TakesErrorInstances) {
    const CIMInstance instance(CIMName("CIM_Error"));
    EXPECT_EQ(CIMException(CIM_ERR_FAILED, String("x"), instance).getCode(), CIM_ERR_FAILED);
    const Array<CIMInstance> instances(2, instance);
    EXPECT_EQ(messageOf(CIMException(CIM_ERR_FAILED, String("x"), instances)), "x");
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
