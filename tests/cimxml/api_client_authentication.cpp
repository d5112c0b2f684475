// Basic authentication.

#include "tests/cimxml/ClientTesting.h"

using namespace Pegasus;

namespace {

class Authentication : public ClientTest {
protected:
    void serveWithPassword() {
        cimom::Endpoint endpoint;
        endpoint.credentials = cimom::Credentials{"admin", "s3cr:t"};
        serve(endpoint);
    }

    bool sentCredentials(std::size_t request) {
        return server.requests().at(request).head.find("\r\nAuthorization: Basic YWRtaW46czNjcjp0\r\n") !=
               std::string::npos;
    }
};

TEST_F(Authentication, CredentialsAreSentOnceAskedForAndAtOnceFromThenOn) {
    serveWithPassword();
    client.connect(host, port, String("admin"), String("s3cr:t"));
    EXPECT_GT(anyRequest().size(), 0U);
    EXPECT_GT(anyRequest().size(), 0U);
    ASSERT_EQ(server.requests().size(), 3U);
    EXPECT_EQ(server.requests()[0].head.find("Authorization"), std::string::npos);
    EXPECT_TRUE(sentCredentials(1));
    EXPECT_TRUE(sentCredentials(2));
}

TEST_F(Authentication, WrongCredentialsThrow) {
    serveWithPassword();
    client.connect(host, port, String("admin"), String("wrong"));
    try {
        anyRequest();
        FAIL() << "threw nothing";
    } catch (const CIMClientHTTPErrorException& exception) {
        EXPECT_EQ(exception.getCode(), 401U);
        EXPECT_EQ(utf8(exception.getMessage()).substr(0, 16), "HTTP Error (401 ");
    }
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(Authentication, AServerThatDoesNotAskGetsNone) {
    serve();
    client.connect(host, port, String("admin"), String("s3cr:t"));
    anyRequest();
    EXPECT_EQ(server.requests().at(0).head.find("Authorization"), std::string::npos);
}

}  // namespace
