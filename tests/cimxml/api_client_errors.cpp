// What the client makes of answers that bring no result.

#include "tests/cimxml/ClientTesting.h"

using namespace Pegasus;

namespace {

using Kind = cimom::Fault::Kind;
using Errors = ClientTest;

TEST_F(Errors, ACimErrorKeepsCodeAndDescription) {
    serveAndConnect();
    cimom::Fault fault;
    fault.kind = Kind::CimError;
    fault.code = 5;
    fault.text = "no such class <here>";
    server.inject(fault);
    try {
        anyRequest();
        FAIL() << "threw nothing";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_INVALID_CLASS);
        EXPECT_EQ(utf8(exception.getMessage()), "no such class <here>");
    }
}

TEST_F(Errors, AnUnknownClassIsACimError) {
    serveAndConnect();
    try {
        client.getClass(nameSpace, CIMName("CIM_NoSuchClass"));
        FAIL() << "threw nothing";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_NOT_FOUND);
    }
    EXPECT_GT(anyRequest().size(), 0U) << "a CIM error leaves the connection as it is";
    EXPECT_EQ(server.connectionsAccepted(), 1U);
}

TEST_F(Errors, AnUnknownNamespaceIsACimError) {
    serveAndConnect();
    try {
        client.enumerateInstanceNames(CIMNamespaceName("root/nowhere"), CIMName("CIM_Sensor"));
        FAIL() << "threw nothing";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_INVALID_NAMESPACE);
    }
}

TEST_F(Errors, AnErrorInTheTrailerWins) {
    serveAndConnect();
    cimom::Fault fault;
    fault.kind = Kind::TrailerError;
    fault.code = 1;
    fault.text = "provider died";
    server.inject(fault);
    try {
        anyRequest();
        FAIL() << "threw nothing";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_FAILED);
        EXPECT_EQ(utf8(exception.getMessage()), "provider died");
    }
}

TEST_F(Errors, AnHttpStatusSaysWhich) {
    serveAndConnect();
    answerWith("HTTP/1.1 500 Out Of Order\r\nContent-Length: 0\r\n\r\n");
    try {
        anyRequest();
        FAIL() << "threw nothing";
    } catch (const CIMClientHTTPErrorException& exception) {
        EXPECT_EQ(exception.getCode(), 500U);
        EXPECT_EQ(utf8(exception.getMessage()), "HTTP Error (500 Out Of Order).");
    }
}

TEST_F(Errors, AnHttpStatusMayHaveReasons) {
    serveAndConnect();
    answerWith(
        "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\nCIMError: request-not-valid\r\n"
        "PGErrorDetail: missing%20name\r\n\r\n");
    try {
        anyRequest();
        FAIL() << "threw nothing";
    } catch (const CIMClientHTTPErrorException& exception) {
        EXPECT_EQ(utf8(exception.getCIMError()), "request-not-valid");
        EXPECT_EQ(utf8(exception.getCIMErrorDetail()), "missing name");
        EXPECT_EQ(
            utf8(exception.getMessage()),
            "HTTP Error (400 Bad Request): CIMError = \"request-not-valid\" Detail = \"missing name\".");
    }
}

TEST_F(Errors, AnAnswerThatStopsBeingXmlThrows) {
    serveAndConnect();
    inject(Kind::MalformedXml);
    EXPECT_THROW(anyRequest(), CIMClientXmlException);
    EXPECT_GT(anyRequest().size(), 0U);
}

std::string answer(const std::string& fields, const std::string& body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n" + fields +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

TEST_F(Errors, AnAnswerWithoutCimOperationThrows) {
    serveAndConnect();
    answerWith(answer("", "<CIM/>"));
    EXPECT_EQ(clientErrorOf<CIMClientMalformedHTTPException>([&] { anyRequest(); }),
              "Missing CIMOperation HTTP header");
}

TEST_F(Errors, AnAnswerToAnotherRequestThrows) {
    serveAndConnect();
    answerWith(answer("CIMOperation: MethodResponse\r\n",
                      "<?xml version=\"1.0\" ?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
                      "<MESSAGE ID=\"another\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>"
                      "<IMETHODRESPONSE NAME=\"EnumerateClassNames\"><IRETURNVALUE></IRETURNVALUE>"
                      "</IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>"));
    const std::string message = clientErrorOf<CIMClientResponseException>([&] { anyRequest(); });
    EXPECT_EQ(message.rfind("Mismatched response message ID:  Got \"another\", expected ", 0), 0U) << message;
}

TEST_F(Errors, ExceptionsAreExceptions) {
    EXPECT_STREQ(utf8(CIMClientXmlException(String("x")).getMessage()).c_str(), "x");
    EXPECT_STREQ(utf8(CIMClientResponseException(String("y")).getMessage()).c_str(), "y");
    EXPECT_STREQ(utf8(CIMClientMalformedHTTPException(String("z")).getMessage()).c_str(), "z");
    const CIMClientHTTPErrorException error(404, String("Not Found"), String(), String());
    const CIMClientHTTPErrorException copy(error);
    EXPECT_EQ(copy.getCode(), 404U);
    EXPECT_EQ(utf8(copy.getMessage()), "HTTP Error (404 Not Found).");
    EXPECT_EQ(utf8(CIMClientHTTPErrorException(500, String("e"), String("d")).getMessage()),
              "HTTP Error (500): CIMError = \"e\" Detail = \"d\".");
}

}  // namespace
