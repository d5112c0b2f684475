// Every kind of failure on the wire has its exception, with the failure nested in it.

#include "cimxml/client/ErrorTranslation.h"

#include <Pegasus/Client/CIMClientException.h>
#include <gtest/gtest.h>

#include <exception>
#include <string>

namespace cimxml_test {
namespace {

using cimxml::WireError;
using namespace Pegasus;

template <class Expected>
void expectTranslation(WireError::Kind kind, const std::string& message) {
    try {
        try {
            throw WireError(kind, "the cause");
        } catch (const WireError& error) {
            throwForUser(error, String("host:1"));
        }
    } catch (const Expected& exception) {
        EXPECT_EQ(static_cast<const char*>(exception.getMessage().getCString()), message);
        try {
            std::rethrow_if_nested(exception);
            ADD_FAILURE() << "nothing nested in " << message;
        } catch (const std::exception& cause) {
            EXPECT_STREQ(cause.what(), "the cause");
        }
    }
}

TEST(ErrorTranslation, CoversEveryKind) {
    using Kind = WireError::Kind;
    expectTranslation<InvalidLocatorException>(Kind::UnknownHost, "Invalid locator: host:1");
    expectTranslation<CannotCreateSocketException>(Kind::NoSocket, "Cannot create socket");
    expectTranslation<CannotConnectException>(Kind::CannotConnect,
                                              "Cannot connect to host:1. Connection failed.");
    expectTranslation<CannotConnectException>(Kind::Silent, "Cannot connect to host:1. the cause");
    expectTranslation<SSLException>(Kind::TlsSetup, "SSL Exception: the cause");
    expectTranslation<ConnectionTimeoutException>(Kind::TimedOut, "connection timed out");
    expectTranslation<CIMClientMalformedHTTPException>(Kind::Closed, "the cause");
    expectTranslation<CIMClientMalformedHTTPException>(Kind::BadHttp, "the cause");
    expectTranslation<CIMClientXmlException>(Kind::BadXml, "the cause");
    expectTranslation<CIMClientResponseException>(Kind::BadResponse, "the cause");
}

TEST(ErrorTranslation, ExceptionsOfTheClientHaveACommonBase) {
    EXPECT_THROW(throw CIMClientXmlException(String("x")), CIMClientException);
    EXPECT_THROW(throw CIMClientHTTPErrorException(500, String(), String()), CIMClientException);
}

}  // namespace
}  // namespace cimxml_test
